#pragma once

#include "forms/Controls.h"
#include "forms/ModalForm.h"
#include "resources/resource.h"

#include <memory>
#include <string>
#include <vector>

namespace kaz {

// All events of one day of the month view, however many.
class frmDayEvents : public ModalForm {
public:
    frmDayEvents(std::unique_ptr<Window> window, ErrorSink& errors, std::string heading,
                 std::vector<std::string> events);

private:
    void Form_Load();
    void cmdClose_Click() { Leave(); }

    std::string heading_;
    std::vector<std::string> events_;
    ListControl lstEvents{window(), IDC_lstDayEvents};
};

}  // namespace kaz
