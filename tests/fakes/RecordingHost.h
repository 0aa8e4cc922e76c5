#pragma once

#include "core/ComponentEvents.h"

#include <functional>
#include <string>
#include <vector>

namespace kaz {

// A host that writes down what the component raises, in order, and can do something in the middle of a mail.
class RecordingHost : public ComponentEvents {
public:
    void TestEvent() override { raised.push_back("TestEvent"); }
    void TodaysEvents(const std::vector<std::string>& lines) override {
        raised.push_back("TodaysEvents");
        todays = lines;
    }
    void UpcomingEvents(const std::vector<std::string>& lines) override {
        raised.push_back("UpcomingEvents");
        upcoming = lines;
    }
    bool MailEvent(const std::string& toAddr, const std::string& subject, const std::string& text) override {
        raised.push_back("MailEvent " + toAddr + "|" + subject + "|" + text);
        if (onMail) onMail();
        return takesMails;
    }
    void ShutDownKAZ() override { raised.push_back("ShutDownKAZ"); }
    void Closed() override { raised.push_back("Closed"); }
    void AllEvents(const std::string& text) override {
        raised.push_back("AllEvents");
        all = text;
    }
    void MissedEvents(std::int32_t missed) override {
        raised.push_back("MissedEvents " + std::to_string(missed));
    }

    std::vector<std::string> raised;
    std::vector<std::string> todays, upcoming;
    std::string all;
    std::function<void()> onMail;
    bool takesMails = true;
};

}  // namespace kaz
