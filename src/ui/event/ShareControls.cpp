#include "ui/event/ShareControls.h"

#include "base/Text.h"

#include <algorithm>
#include <utility>

namespace kaz {

void ShareControls::Load(bool networked, const std::vector<std::string>& users) {
    networked_ = networked;
    lstUsers.Items(networked ? users : std::vector<std::string>{});
}

void ShareControls::Show(const clsEvent& event) {
    chkShared.Checked(networked_ && event.SharedEvent);
    chkSpecificShare.Checked(networked_ && event.ShareWithSpecific);
    if (!networked_) return;

    // A name that is not in the folder's list at the moment, perhaps because the folder cannot be reached,
    // is kept for as long as the user keeps it.
    std::vector<std::string> users = lstUsers.Items();
    for (const std::string_view name : Split(event.ShareNames, kLineBreak)) {
        const auto same = [&](const std::string& user) { return folding_.Equal(user, name); };
        if (!name.empty() && std::none_of(users.begin(), users.end(), same)) users.emplace_back(name);
    }
    lstUsers.Items(users);

    std::vector<int> selection;
    for (int position = 0; std::cmp_less(position, users.size()); ++position)
        if (event.NameInShared(users[static_cast<std::size_t>(position)], folding_))
            selection.push_back(position);
    lstUsers.Selection(selection);
}

void ShareControls::Take(clsEvent& event) const {
    event.SharedEvent = networked_ && chkShared.Checked();
    event.ShareWithSpecific = networked_ && chkSpecificShare.Checked();
    event.ShareNames.clear();
    const std::vector<std::string> users = lstUsers.Items();
    for (const int position : lstUsers.Selection())
        event.ShareNames.append(users.at(static_cast<std::size_t>(position))).append(kLineBreak);
}

void ShareControls::FollowTicks() {
    const bool shared = networked_ && chkShared.Checked();
    const bool specific = shared && chkSpecificShare.Checked();
    FrameShared.Enabled(networked_);
    chkShared.Enabled(networked_);
    chkSpecificShare.Enabled(shared);
    lblUsers.Enabled(specific);
    lstUsers.Enabled(specific);
}

}  // namespace kaz
