#include "cli/json_writer.h"

#include <functional>
#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "cli/written.h"

namespace corvane {

namespace {

std::string written(const std::function<void(JsonWriter &)> &write)
{
    return writtenTo([&write](Output &out) {
        JsonWriter json(out);
        write(json);
    });
}

TEST(JsonWriter, PutsCommasBetweenAndNowhereElse)
{
    EXPECT_EQ(written([](JsonWriter &json) {
                  json.beginObject();
                  json.key("a");
                  json.beginArray();
                  json.value(std::int64_t{1});
                  json.null();
                  json.value(true);
                  json.beginObject();
                  json.endObject();
                  json.beginArray();
                  json.endArray();
                  json.endArray();
                  json.key("b");
                  json.text("x");
                  json.endObject();
                  json.finish();
              }),
              "{\"a\":[1,null,true,{},[]],\"b\":\"x\"}\n");
}

TEST(JsonWriter, NumbersKeepTheirValue)
{
    const std::string text = written([](JsonWriter &json) {
        json.beginArray();
        json.value(std::int64_t{9'223'372'036'854'775'807});
        json.value(std::int64_t{-5});
        json.value(0.1);
        json.value(1.5e-9);
        json.value(597.0);
        json.endArray();
    });
    const nlohmann::json numbers = nlohmann::json::parse(text);
    EXPECT_EQ(numbers[0], 9'223'372'036'854'775'807);
    EXPECT_EQ(numbers[1], -5);
    EXPECT_EQ(numbers[2], 0.1);
    EXPECT_EQ(numbers[3], 1.5e-9);
    EXPECT_EQ(numbers[4], 597.0);
}

TEST(JsonWriter, AnUnknownTimeIsNull)
{
    EXPECT_EQ(written([](JsonWriter &json) {
                  json.beginArray();
                  json.value(distantPast);
                  json.value(Time{std::chrono::seconds{1'500'000'000}});
                  json.value(Time{std::chrono::seconds{-1}});
                  json.endArray();
              }),
              "[null,1500000000,-1]");
}

TEST(JsonWriter, EveryValidTextComesBack)
{
    std::string all;
    for (char c = 1; c < 127; ++c)
        all += c;
    for (const std::string &text : {all, std::string("a\0b", 3), std::string("\x7F\u0080\u2028\U0001F389 \\\"/")}) {
        const std::string document = written([&](JsonWriter &json) { json.text(text); });
        EXPECT_EQ(nlohmann::json::parse(document), text);
    }
}

TEST(JsonWriter, BytesThatAreNoTextAreAlsoGivenInHexadecimal)
{
    EXPECT_EQ(written([](JsonWriter &json) {
                  json.beginObject();
                  json.bytes("path", "/a\xFF");
                  json.bytes("name", "plain");
                  json.endObject();
              }),
              "{\"path\":\"/a\xEF\xBF\xBD\",\"pathHex\":\"2f61ff\",\"name\":\"plain\"}");
}

TEST(JsonWriter, EachByteThatIsNoTextIsOneReplacement)
{
    EXPECT_EQ(written([](JsonWriter &json) { json.text("a\xFF\"\xE2\x82\u00E9\n\x01\xC3"); }),
              "\"a\uFFFD\\\"\uFFFD\uFFFD\u00E9\\n\\u0001\uFFFD\"");
}

TEST(Output, KeepsTheFailureAndStopsWriting)
{
    Output out(-1);
    out.write("x");
    EXPECT_FALSE(out.isClosed());
    out.flush();
    EXPECT_TRUE(out.isClosed());
    EXPECT_EQ(out.error(), std::errc::bad_file_descriptor);
}

} // namespace

} // namespace corvane
