// Owners of what COM hands out: interfaces, and memory that the caller has to free.
#pragma once

#include "toolkit/handle.h"

namespace handle_release {
template <typename Interface>
void Com(Interface* object) noexcept {
    object->Release();
}
template <typename Block>
void TaskMemory(Block* block) noexcept {
    CoTaskMemFree(block);
}
}  // namespace handle_release

template <typename Interface>
using tvcomptr = tvowner<Interface*, handle_release::Com<Interface>>;
using tvTaskText = tvowner<wchar_t*, handle_release::TaskMemory<wchar_t>>;
using tvItemList = tvowner<ITEMIDLIST*, handle_release::TaskMemory<ITEMIDLIST>>;
