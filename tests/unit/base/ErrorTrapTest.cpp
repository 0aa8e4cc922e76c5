#include "base/ErrorTrap.h"

#include "base/RuntimeError.h"
#include "fakes/Matchers.h"

#include <stdexcept>
#include <vector>

namespace kaz {
namespace {

class Sink : public ErrorSink {
public:
    void Report(const ErrorInfo& error, std::string_view procedure,
                std::string_view module) noexcept override {
        lines.push_back(std::to_string(error.number) + " " + error.description + " " +
                        std::string(procedure) + " " + std::string(module));
    }
    std::vector<std::string> lines;
};

TEST(ErrorTrap, EveryFailureIsClassifiedAndTheStepsGoOn) {
    Sink sink;
    ErrorTrap trap(sink, "Load", "clsX");
    EXPECT_FALSE(trap([] { throw RuntimeError(ErrorNumber::DiskFull); }));
    EXPECT_FALSE(trap([] { throw RuntimeError(ErrorNumber::TypeMismatch, "not a date"); }));
    EXPECT_TRUE(trap([] {}));
    trap([] { throw std::bad_alloc(); });
    trap([] { static_cast<void>(std::string().at(1)); });
    trap([] { static_cast<void>(std::stoi("x")); });
    trap([] { throw std::runtime_error("odd"); });
    trap([] { throw 1; });
    EXPECT_THAT(sink.lines, ElementsAre("61 Disk full Load clsX", "13 not a date Load clsX",
                                        "7 Out of memory Load clsX", "9 Subscript out of range Load clsX",
                                        StartsWith("5 "), "51 odd Load clsX", "51 Internal error Load clsX"));
}

}  // namespace
}  // namespace kaz
