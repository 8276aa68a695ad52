/// Row changes as bytes: how the store's file keeps changes and whole trees.
#ifndef PLATFORM_HOST_ROW_CODEC_H
#define PLATFORM_HOST_ROW_CODEC_H

#include <optional>
#include <string>
#include <string_view>

#include "row.h"

namespace host {

/// Names share their beginnings, which stand only once.
std::string encoded(const RowChanges& changes);

/// None when the bytes are not what encoded() makes.
std::optional<RowChanges> decoded(std::string_view bytes);

}  // namespace host

#endif  // PLATFORM_HOST_ROW_CODEC_H
