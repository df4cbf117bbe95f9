#include "vzconv/command_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <streambuf>

#include "support/failing_allocations.h"

namespace vzconv {
namespace {

constexpr const char* kText =
    "BEGIN:VBKM\r\nVERSION:1.0\r\nTITLE:T\r\nURL:http://www.example.com/\r\nEND:VBKM\r\n";

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

Outcome run_on(const std::vector<std::string>& arguments, const std::string& standard_input) {
    std::istringstream in(standard_input);
    std::ostringstream out;
    std::ostringstream err;
    const int status = run(arguments, {in, out, err});
    return {status, out.str(), err.str()};
}

// Takes so many bytes and no more, like a disk.
class FullDisk : public std::streambuf {
public:
    explicit FullDisk(std::streamsize room) : room_(room) {}

protected:
    std::streamsize xsputn(const char*, std::streamsize count) override {
        const std::streamsize taken = std::min(count, room_);
        room_ -= taken;
        return taken;
    }
    int_type overflow(int_type c) override { return room_-- > 0 ? c : traits_type::eof(); }

private:
    std::streamsize room_;
};

TEST(CommandLine, ResultGoesToStandardOutputAndTheRestToStandardError) {
    const Outcome outcome = run_on({"json", "-"}, std::string("stray\n") + kText + "BEGIN:VBKM\n");
    EXPECT_EQ(outcome.status, kSomeFailed);
    EXPECT_EQ(outcome.out, "{\"kind\":\"bookmark\",\"title\":\"T\",\"url\":\"http://www.example.com/\"}\n");
    EXPECT_EQ(outcome.err,
              "-:1: warning: text outside of any object is left out\n"
              "-:7: bookmark: no END:VBKM before the end of the text\n");
}

TEST(CommandLine, AWarningIsNoFailure) {
    EXPECT_EQ(run_on({"json", "-"}, std::string("stray\n") + kText).status, kAllConverted);
}

// Not with JSON: its library allocates where it releases, and ends the program when that fails.
TEST(CommandLine, NoFailedAllocationGoesUnsaid) {
    using vzapi::test::FailingAllocations;
    const std::vector<std::string> arguments = {"show", "-"};
    const std::string expected = run_on(arguments, kText).out;
    std::size_t said = 0;
    for (std::size_t n = 1;; ++n) {
        std::istringstream in(kText);
        std::ostringstream out;
        std::ostringstream err;
        FailingAllocations failing(n, vzapi::test::Allocations::OperatorNew);
        const int status = run(arguments, {in, out, err});
        failing.stop();
        if (!failing.failed()) break;
        if (status == kAllConverted) {
            EXPECT_EQ(out.str(), expected) << n;
            continue;
        }
        EXPECT_EQ(status, kSomeFailed) << n;
        EXPECT_NE(err.str(), "") << n;
        said += err.str() == "vzconv: out of memory\n" ? 1 : 0;
    }
    EXPECT_GT(said, 0U);
}

TEST(CommandLine, AFullDiskEndsTheRunAtTheFirstByteThatIsLost) {
    const std::string two = std::string(kText) + kText;
    const std::string whole = run_on({"json", "-"}, two).out;
    for (std::size_t room = 0; room < whole.size(); ++room) {
        FullDisk disk(static_cast<std::streamsize>(room));
        std::istringstream in(two);
        std::ostream out(&disk);
        std::ostringstream err;
        EXPECT_EQ(run({"json", "-"}, {in, out, err}), kSomeFailed) << room;
        EXPECT_EQ(err.str(), "vzconv: standard output cannot be written\n") << room;
    }
}

TEST(CommandLine, StandardInputIsReadOnce) {
    const Outcome outcome = run_on({"json", "-", "-"}, kText);
    EXPECT_EQ(outcome.status, kSomeFailed);
    EXPECT_EQ(outcome.err, "-: holds no versit object\n");
}

TEST(CommandLine, MistakesAreUsage) {
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{}, {"jsn"}, {"json"}, {"json", "--x", "-"}, {"--x"}, {"-"}}) {
        const Outcome outcome = run_on(arguments, kText);
        EXPECT_EQ(outcome.status, kUsage);
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err.find("vzconv --help"), std::string::npos);
    }
}

}  // namespace
}  // namespace vzconv
