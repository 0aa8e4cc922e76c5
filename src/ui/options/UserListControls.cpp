#include "ui/options/UserListControls.h"

#include "base/Text.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "resources/resource.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"
#include "ui/options/OptionsSaving.h"

#include <string>
#include <vector>

namespace kaz {

namespace {

// A list that somebody else is just writing, or may not be written, is told like any other fault.
template <class Step>
void WithList(Step step) {
    try {
        step();
    } catch (const FieldFault&) {
        throw;
    } catch (const RuntimeError& error) {
        throw FieldFault(IDC_lstSharedUsers,
                         "The list of users could not be read or written: " + error.Description());
    }
}

}  // namespace

UserListControls::UserListControls(Window& window, Application& application)
    : app_(application),
      txtSharedDBPath(window, IDC_txtSharedDBPath),
      txtOwner(window, IDC_txtOwner),
      lstUsers(window, IDC_lstSharedUsers),
      cmdAddUser(window, IDC_cmdAddUser),
      cmdDel(window, IDC_cmdDel),
      cmdReload(window, IDC_cmdReload) {}

SharedFolder UserListControls::Folder() const {
    const std::string path(Trim(TypedText(txtSharedDBPath)));
    if (!FolderExists(app_.platform.files, path))
        throw FieldFault(txtSharedDBPath.Id(), path.empty() ? "You need to supply the shared data path."
                                                            : "The shared data folder " + path +
                                                                  " does not exist or cannot be reached.");
    return {app_.platform.files, path, app_.log};
}

void UserListControls::Reload() {
    lstUsers.Items({});
    WithList([&] { lstUsers.Items(Folder().Users()); });
}

void UserListControls::Add() {
    const std::string id(Trim(FittingText(txtOwner)));
    if (id.empty()) throw FieldFault(txtOwner.Id(), "You need to enter an ID before you can add it");
    if (Trim(TypedText(txtSharedDBPath)).empty())
        throw FieldFault(txtSharedDBPath.Id(),
                         "You need to supply the shared data path before you can add users to it.");
    OptionsSaving::CheckId(id);
    WithList([&] { Folder().AddUser(id); });
    Reload();
}

void UserListControls::Delete() {
    const std::vector<std::string> items = lstUsers.Items();
    std::vector<std::string> users;
    for (const int position : lstUsers.Selection())
        users.push_back(items.at(static_cast<std::size_t>(position)));
    if (users.empty()) throw FieldFault(lstUsers.Id(), "Select the users that you want to remove first.");
    if (!app_.platform.dialogs.AskYesNo("Are you sure you want to remove these users?")) return;
    WithList([&] { Folder().RemoveUsers(users); });
    Reload();
}

void UserListControls::Enable(bool enabled) {
    lstUsers.Enabled(enabled);
    for (Button* button : {&cmdAddUser, &cmdDel, &cmdReload})
        button->Enabled(enabled);
}

}  // namespace kaz
