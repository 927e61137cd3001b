// A drawing object that is deleted with its owner: OwnedGdi<HBITMAP>, OwnedGdi<HFONT>.
#pragma once

#include "platform/gdi.h"

#include <memory>
#include <type_traits>

struct DeleteGdiObject {
    void operator()(HGDIOBJ object) const noexcept { DeleteObject(object); }
};

template <typename Handle>
using OwnedGdi = std::unique_ptr<std::remove_pointer_t<Handle>, DeleteGdiObject>;
