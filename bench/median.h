#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

/// The median; of an even number of values, the mean of the two in the middle. `values` must not be empty.
inline double median(std::vector<double> values)
{
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}
