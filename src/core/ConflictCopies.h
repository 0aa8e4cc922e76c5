#pragma once

#include <map>
#include <string>
#include <vector>

namespace kaz {

class Application;
class clsEvent;

// The copies that a synchronising program leaves beside an event file when two machines have changed it at
// the same time, such as "Events (Ann's conflicted copy 2023-03-15).xml". What is only in one of them, or
// different there, is offered to the user, once for each copy. Nothing is replaced without a yes.
class ConflictCopies {
public:
    // The application outlives it.
    explicit ConflictCopies(Application& application) : app_(application) {}

    // Looks for new copies in the data folder.
    void Look();

private:
    struct Content {
        std::vector<clsEvent> missing;    // here
        std::vector<clsEvent> different;  // from the one with the same code here
    };
    enum class Choice { Copy, Mine, Both };

    void Offer(const std::string& name);
    void OfferNext(const std::string& name, std::vector<clsEvent> different);
    void Choose(Choice choice, const clsEvent& copy);
    Content NewIn(const std::string& path);
    void TakeOver(std::vector<clsEvent> missing);
    void Answered(const std::string& name);
    bool IsAnswered(const std::string& name) const;

    Application& app_;
    std::map<std::string, long long> seen_;  // by name, the date of the copy
};

}  // namespace kaz
