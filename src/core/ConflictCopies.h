#pragma once

#include <map>
#include <string>
#include <vector>

namespace kaz {

class Application;
class clsEvent;

// The copies that a synchronising program leaves beside an event file when two machines have changed it at
// the same time, such as "Events (Ann's conflicted copy 2023-03-15).xml". What is only in one of them is
// offered to the user, once for each copy.
class ConflictCopies {
public:
    // The application outlives it.
    explicit ConflictCopies(Application& application) : app_(application) {}

    // Looks for new copies in the data folder.
    void Look();

private:
    void Offer(const std::string& name);
    std::vector<clsEvent> OnlyIn(const std::string& path);
    void TakeOver(std::vector<clsEvent> missing);
    void Answered(const std::string& name);
    bool IsAnswered(const std::string& name) const;

    Application& app_;
    std::map<std::string, long long> seen_;  // by name, the date of the copy
};

}  // namespace kaz
