# A package has a title, a description and files.
define BuildPackage
package-$(1):
	@test -n "$(PKG_VERSION)" || { echo "no version" >&2; exit 1; }
	@test -n "$$(strip $$(Package/$(1)/description))" || { echo "no description" >&2; exit 1; }
	@test -n "$$(findstring TITLE:=,$$(value Package/$(1)))" || { echo "no title" >&2; exit 1; }
	$$(call Package/$(1)/install,$(OUT)/$(1))
	@echo "$(1) $(PKG_VERSION)-$(PKG_RELEASE)"
endef
