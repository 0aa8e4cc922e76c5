#pragma once

#include <filesystem>
#include <string>

namespace kaz {

// A real folder of its own for one test, removed at the end.
class TestFolder {
public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    void Write(const std::string& name, const std::string& bytes) const;
    // "" when there is no such file.
    std::string Read(const std::string& name) const;

private:
    std::filesystem::path path_;
};

}  // namespace kaz
