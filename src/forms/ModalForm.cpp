#include "forms/ModalForm.h"

namespace kaz {

bool ModalForm::Ask() {
    OnRaised(0, Raised::Load, 0);
    return window().ShowModal() == kAccepted;
}

void ModalForm::Close(int result) {
    window().EndModal(result);
    window().Hide();
}

}  // namespace kaz
