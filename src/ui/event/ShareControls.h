#pragma once

#include "base/LocaleData.h"
#include "forms/Controls.h"
#include "model/clsEvent.h"
#include "resources/resource.h"

#include <string>
#include <vector>

namespace kaz {

// The frame of the event editor that says with whom the event is shared. Without a network it is disabled and
// the event is not shared.
class ShareControls {
public:
    ShareControls(Window& window, const CaseFolding& folding) : window_(window), folding_(folding) {}

    // `users` may share events with each other.
    void Load(bool networked, const std::vector<std::string>& users);
    void Show(const clsEvent& event);
    void Take(clsEvent& event) const;
    // Enables what depends on the ticks.
    void FollowTicks();

private:
    Window& window_;
    const CaseFolding& folding_;
    Control FrameShared{window_, IDC_FrameShared};
    CheckBox chkShared{window_, IDC_chkShared};
    CheckBox chkSpecificShare{window_, IDC_chkSpecificShare};
    Label lblUsers{window_, IDC_lblUsers};
    ListControl lstUsers{window_, IDC_lstUsers};
    bool networked_ = false;
};

}  // namespace kaz
