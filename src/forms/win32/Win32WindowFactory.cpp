#include "forms/win32/Win32WindowFactory.h"

#include "forms/win32/DialogWindow.h"

namespace kaz {

std::unique_ptr<Window> Win32WindowFactory::Create(int dialog) {
    return std::make_unique<DialogWindow>(module_, dialog);
}

}  // namespace kaz
