#pragma once

#include "core/Application.h"
#include "core/ComponentEvents.h"
#include "storage/VisibleEvents.h"

#include <string>
#include <vector>

namespace kaz {

// What one scan tells the host: the lines due today, the lines coming up and the text of all events. Events
// that run a file are in none of them.
class HostLists {
public:
    // Reads the databases as they are now. An event of today with an e-mail address that has not been mailed
    // raises MailEvent on `host` at once and is marked as mailed.
    HostLists(Application& application, ComponentEvents& host);

    std::vector<std::string> todays;
    std::vector<std::string> upcoming;  // never empty: "None" when nothing comes up
    std::string all;

private:
    void AddLocal();
    void AddShared();
    void AddTodays(const clsEvent& event, std::size_t position);
    void AppendLine(const VisibleEvent& seen, const std::string& description);
    void SendMail(const clsEvent& event, std::size_t position);
    void Mark(const std::string& code, DateValue day, const std::string& email);

    Application& app_;
    ComponentEvents& host_;
    VisibleEvents visible_;
    DateValue today_;
    bool mailed_ = false;
};

}  // namespace kaz
