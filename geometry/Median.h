// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <functional>

namespace geometry {

/// The value at \a place when \a values, of which there is one at least, are in order.
template <class Values, class Less = std::less<>>
auto valueInOrder(Values values, int place, Less less = {})
{
    const auto middle = values.begin() + place;
    std::nth_element(values.begin(), middle, values.end(), less);
    return *middle;
}

/// The middle one of \a values in order, of an even number the lower of the two; 0 of none.
template <class Values, class Less = std::less<>> auto lowerMedian(Values values, Less less = {})
{
    const auto count = static_cast<int>(values.size());
    return count == 0 ? typename Values::value_type{}
                      : valueInOrder(std::move(values), (count - 1) / 2, less);
}

/// The same, of an even number the upper of the two.
template <class Values, class Less = std::less<>> auto upperMedian(Values values, Less less = {})
{
    const auto count = static_cast<int>(values.size());
    return count == 0 ? typename Values::value_type{}
                      : valueInOrder(std::move(values), count / 2, less);
}

} // namespace geometry
