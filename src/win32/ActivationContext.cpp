#include "win32/ActivationContext.h"

namespace kaz {

ActivationContext::ActivationContext(HINSTANCE module) {
    ACTCTXW request{};
    request.cbSize = sizeof request;
    request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    request.hModule = module;
    request.lpResourceName = MAKEINTRESOURCEW(2);
    context_.Reset(CreateActCtxW(&request));
    if (context_ && !ActivateActCtx(context_.Get(), &cookie_)) context_.Reset();
}

ActivationContext::~ActivationContext() {
    if (context_) DeactivateActCtx(0, cookie_);
}

}  // namespace kaz
