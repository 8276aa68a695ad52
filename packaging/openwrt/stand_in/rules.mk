# Stands in for OpenWrt's build system as far as this recipe uses it, so that the recipe's own lines
# can be tried without one: it applies them to a tree that `cmake --install` made.
#
#   make -C ../libigd TOPDIR=../stand_in TREE=<tree with usr/> OUT=<folder> PACKAGES="libigd ..."
SHELL:=/bin/bash
INCLUDE_DIR:=$(TOPDIR)
PKG_INSTALL_DIR:=$(TREE)
INSTALL_DIR:=install -d -m0755
INSTALL_BIN:=install -m0755
CP:=cp -fpR

all: $(addprefix package-,$(PACKAGES)) development

development:
	$(call Build/InstallDev,$(OUT)/development)
