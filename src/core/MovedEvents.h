#pragma once

#include "base/ErrorTrap.h"
#include "storage/clsDbXml.h"

namespace kaz {

// Undoes in memory what the program did to the events because of a wrong date: what it only moved on or
// retired goes back; what the user added, changed or deleted meanwhile stays.
class MovedEvents {
public:
    // The databases as they are now, and the last day on which the date was right.
    MovedEvents(clsDbXml& events, clsDbXml& expired, DateValue lastRightDay, ErrorSink& errors)
        : events_(events),
          expired_(expired),
          lastRightDay_(lastRightDay),
          errors_(errors) {}

    // With the events as they were and the day to which the date went. Returns how many went back.
    int PutBack(const std::vector<clsEvent>& eventsBefore, const std::vector<clsEvent>& expiredBefore,
                DateValue wrongDay);

private:
    bool SetBack(clsEvent& event, const clsEvent& before) const;
    bool BringNear(clsEvent& event, DateValue wrongDay) const;
    int Revive(const std::vector<clsEvent>& expiredBefore);

    clsDbXml& events_;
    clsDbXml& expired_;
    DateValue lastRightDay_;
    ErrorSink& errors_;
};

}  // namespace kaz
