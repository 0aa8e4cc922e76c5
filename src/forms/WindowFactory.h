#pragma once

#include "forms/Window.h"

#include <memory>

namespace kaz {

// Makes windows from the dialog templates of the resources, hidden.
class WindowFactory {
public:
    virtual ~WindowFactory() = default;
    // `dialog` is a template id of resources/resource.h. Throws InternalError when the window cannot be made.
    virtual std::unique_ptr<Window> Create(int dialog) = 0;
};

}  // namespace kaz
