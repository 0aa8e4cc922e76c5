#pragma once

#include "forms/Controls.h"
#include "forms/ModalForm.h"
#include "resources/resource.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kaz {

// What can be done on the day, and with one of its events; the row counts from 0. True when it was done.
struct DayCommands {
    std::string day;  // "Fri 25 Dec"
    std::function<bool()> add;
    std::function<bool(int row)> edit;
    std::function<bool(int row)> skip;
    std::function<bool(int row)> move;
};

// All events of one day of the month view, however many.
class frmDayEvents : public ModalForm {
public:
    frmDayEvents(std::unique_ptr<Window> window, ErrorSink& errors, std::string heading,
                 std::vector<std::string> events, DayCommands commands);

private:
    void Form_Load();
    void cmdClose_Click() { Leave(); }
    void cmdAdd_Click();
    void Do(const std::function<bool(int row)>& command);

    std::string heading_;
    std::vector<std::string> events_;
    DayCommands commands_;
    ListControl lstEvents{window(), IDC_lstDayEvents};
};

}  // namespace kaz
