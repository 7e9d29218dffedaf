// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace sdkhost {

//! The element at index; null if index is out of range.
template<class T>
T *elementAt(const std::vector<std::unique_ptr<T>> &list, int index)
{
    return index >= 0 && std::size_t(index) < list.size() ? list[std::size_t(index)].get() : nullptr;
}

template<class T>
bool contains(const std::vector<std::unique_ptr<T>> &list, const T *element)
{
    return std::any_of(list.begin(), list.end(),
                       [element](const auto &owned) { return owned.get() == element; });
}

} // namespace sdkhost
