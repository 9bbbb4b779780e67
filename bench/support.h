#pragma once

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <fmt/format.h>

/// The median; of an even number of values, the mean of the two in the middle. `values` must not be empty.
inline double median(std::vector<double> values)
{
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

inline double milliseconds(std::chrono::steady_clock::duration duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

/// The word printed after a goal.
inline std::string_view verdict(bool reached)
{
    return reached ? "reached" : "MISSED";
}

/// The goal of a figure with its verdict, such as "goal: at most 50 ms, reached". `unit` may be empty.
inline std::string goalAtMost(double limit, std::string_view unit, double figure)
{
    return fmt::format("goal: at most {:g}{}{}, {}", limit, unit.empty() || unit.starts_with('%') ? "" : " ", unit,
                       verdict(figure <= limit));
}

/// A number of at least 1; nothing for any other text.
inline std::optional<int> positiveNumber(std::string_view text)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < 1)
        return std::nullopt;
    return value;
}

/// The number of rounds, which is the first argument; `usual` without one. Ends the program with 2 if it is not a
/// positive number.
inline int roundsFrom(int argc, char **argv, int usual)
{
    if (argc < 2)
        return usual;
    if (const std::optional<int> rounds = positiveNumber(argv[1]))
        return *rounds;
    const std::string_view program = argv[0];
    fmt::print(stderr, "{}: the number of rounds must be a positive number\n", program.substr(program.rfind('/') + 1));
    std::exit(2);
}

/// Throws for an error code, as posix_fallocate() returns it; 0 is success.
inline void checkCode(int code, const std::string &path)
{
    if (code != 0)
        throw std::system_error(code, std::generic_category(), path);
}

/// Throws what errno says if a system call failed.
inline void check(bool succeeded, const std::string &path)
{
    if (!succeeded)
        checkCode(errno, path);
}
