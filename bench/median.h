#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

/// The middle of the values, of an even number the mean of the two in the middle. There is at least one.
inline double median(std::vector<double> values)
{
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}
