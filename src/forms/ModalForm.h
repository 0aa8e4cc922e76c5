#pragma once

#include "forms/Form.h"

namespace kaz {

// A window that the user closes before going on with the others.
class ModalForm : public Form {
public:
    // Loads the form and shows it until it is closed. True when the user accepted.
    bool Ask();
    // The end of the program closes it too, as if the user gave up.
    void Form_Unload() override { Leave(); }

protected:
    using Form::Form;

    // Hidden only once the others are enabled again; the system would bring another
    // program to the front otherwise.
    void Accept() { Close(kAccepted); }
    void Leave() { Close(kLeft); }

private:
    static constexpr int kAccepted = 1;
    static constexpr int kLeft = 2;
    void Close(int result);
};

}  // namespace kaz
