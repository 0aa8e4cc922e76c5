#pragma once

#include "core/Application.h"
#include "forms/Controls.h"

namespace kaz {

// The list of the users who share, in the folder that is typed just now. What the user does to it takes
// effect at once. All of these throw FieldFault for what the user has to put right.
class UserListControls {
public:
    UserListControls(Window& window, Application& application);

    void Reload();
    void Add();
    // Asks first.
    void Delete();
    void Enable(bool enabled);

private:
    SharedFolder Folder() const;

    Application& app_;
    TextBox txtSharedDBPath;
    TextBox txtOwner;
    ListControl lstUsers;
    Button cmdAddUser;
    Button cmdDel;
    Button cmdReload;
};

}  // namespace kaz
