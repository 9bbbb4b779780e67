#pragma once

#include <array>
#include <functional>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "cli/console.h"
#include "cli/output.h"

namespace corvane {

/// Captures what is written to an output; must fit into a pipe.
inline std::string writtenTo(const std::function<void(Output &)> &write)
{
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe(ends.data()), 0);
    {
        Output out(ends[1]);
        write(out);
        out.flush();
    }
    ::close(ends[1]);
    std::string text(60'000, '\0');
    const ssize_t count = ::read(ends[0], text.data(), text.size());
    ::close(ends[0]);
    text.resize(static_cast<std::size_t>(count));
    return text;
}

/// Captures what is printed on a console.
inline std::string printedOn(const std::function<void(Console &)> &print)
{
    testing::internal::CaptureStdout();
    {
        Console console;
        print(console);
        console.out.flush();
    }
    return testing::internal::GetCapturedStdout();
}

} // namespace corvane
