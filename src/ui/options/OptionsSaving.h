#pragma once

#include "core/Application.h"
#include "ui/options/Options.h"

#include <string>

namespace kaz {

// Makes what the user has typed the program's options. First all is checked and
// nothing stored, then all is stored.
class OptionsSaving {
public:
    explicit OptionsSaving(Application& application) : app_(application), before_(Options::Of(application)) {}

    // Puts right what the program can put right. Throws FieldFault for what only the user can, with an empty
    // text when the user knows already. Paths that the user has not changed are not looked at: a share
    // without its network must not keep the other options from being saved.
    void Check(Options& options);
    // Stores the options that were checked, and gives the events to the new owner.
    void Store(const Options& options);

    // Throws FieldFault for a name that cannot be this user's among others.
    static void CheckId(const std::string& id);

private:
    void CheckDataPath(Options& options);
    void CheckSecondBackup(Options& options);
    static void CheckQuiet(Options& options);
    void CheckSharing(const Options& options);
    void StoreLogonStart(const Options& options);
    void StoreOwner(const Options& options);
    std::string CopiedDataPath(const Options& options);

    Application& app_;
    Options before_;
    bool copyEvents_ = false;  // the user wants the events in the new data folder
};

}  // namespace kaz
