#pragma once

#include <array>

namespace Kel {

/// Colour keys of the marks by their index; the last one is for an index that is none.
constexpr std::array<const char*, 5> kMarkColorKeys = {"ic_clr_mark_light_blue", "ic_clr_mark_purple",
                                                       "ic_clr_mark_dark_blue", "ic_clr_mark_yellow",
                                                       "ic_clr_entrust_default_text"};

/// The key of a mark's colour; the default text's for an index that is none.
constexpr const char* markColorKey(int index)
{
    return index >= 0 && index < 4 ? kMarkColorKeys[static_cast<unsigned>(index)] : kMarkColorKeys[4];
}

} // namespace Kel
