#include "FormTest.h"
#include "ui/ModalWindows.h"

namespace kaz {
namespace {

// Fred, who shares his events with Ann in "C:\Share".
class frmOptionsTest : public FormTest {
protected:
    frmOptionsTest() {
        machine.files.Put("C:\\Share\\KAZShared.ini", "Fred\r\n\r\n Ann \r\n");
        machine.files.Put("C:\\KAZ\\Kaz.ini",
                          "OWNER,Fred\r\nNETWORKED,-1\r\nSHAREDDATAPATH,C:\\Share\r\nNOAUTOBACKUPS,0\r\n");
        machine.files.Put(kEventFile,
                          FileOf({SharedBy("Fred", OneOff("000001", "Tea", kToday.PlusDays(1)))}));
        app.settingsInitialised = false;
        app.settings.LoadSettings(app.settingsFileName);
        app.ReopenDatabases();
        app.events->SaveDB();
    }
    // Opens the dialog, lets the user work in it, and opens the databases anew as its caller does.
    bool Options(const std::function<void()>& user) {
        InModal(IDD_OPTIONS, [&] {
            user();
            if (window->IsVisible()) Click(IDC_cmdAbortOptions);
        });
        const bool saved = ShowOptions(app);
        app.ReopenDatabases();
        return saved;
    }
    void Save() { Click(IDC_cmdSaveOptions); }
    std::string Saved(const std::string& name) const { return FormTest::Saved("C:\\" + name); }
};

TEST_F(frmOptionsTest, ShowsTheSettingsAndStoresOnlyWhatIsSaved) {
    const std::string before = Saved("KAZ\\Kaz.ini");
    EXPECT_FALSE(Options([&] {
        EXPECT_EQ(Text(IDC_txtDatapath), "C:\\KAZ");
        EXPECT_EQ(Text(IDC_txtAlarmWav), "C:\\KAZ\\alarm.wav");
        EXPECT_EQ(Text(IDC_txtOwner), "Fred");
        EXPECT_TRUE(window->Checked(IDC_optUSDate));
        EXPECT_TRUE(window->Checked(IDC_optNetworked));
        EXPECT_FALSE(window->Enabled(IDC_chkPruneBackups));
        EXPECT_THAT(window->Items(IDC_lstSharedUsers), ElementsAre("Fred", "Ann"));
        Click(IDC_optSingle);
        EXPECT_FALSE(window->Enabled(IDC_txtOwner));
        Click(IDC_chkNoSound);
        stage->CloseBox(*window);
    }));
    EXPECT_EQ(Saved("KAZ\\Kaz.ini"), before);

    machine.dialogs.files = {"D:\\bell.wav"};
    EXPECT_TRUE(Options([&] {
        Click(IDC_cmdPickAlarmWav);
        Click(IDC_optEuroDate);
        Click(IDC_chkSilentStart);
        Click(IDC_chkStartAtLogon);
        // A folder that somebody carries about gets its copies on this computer.
        machine.dialogs.yesNo = {true};
        Click(IDC_cmdSecondBackup);
        EXPECT_EQ(Text(IDC_txtSecondBackup), "C:\\Local\\KAZ\\Autobackups");
        Type(IDC_txtSecondBackup, "D:/Copies\\");
        Click(IDC_chkQuietScreen);
        Type(IDC_txtQuietFrom, "22");
        Save();
        EXPECT_EQ(stage->Focus(*window), IDC_txtQuietTo);
        Type(IDC_txtQuietTo, "7.00");
        Save();
    }));
    EXPECT_EQ(machine.system.startsAtLogon, true);
    EXPECT_EQ(machine.system.startedFolder, "C:\\KAZ");
    EXPECT_THAT(Told(), ElementsAre("Cannot find specified WAV file. Sounds disabled.",
                                    "Quiet hours need two times, such as 22:00 and 07:00, or none."));
    EXPECT_THAT(Saved("KAZ\\Kaz.ini"),
                HasSubstr("QUIETFULLSCREEN,-1\r\nQUIETFROM,22:00\r\nQUIETTO,07:00\r\n"));
    EXPECT_THAT(Saved("KAZ\\Kaz.ini"), HasSubstr("DATESTYLE,1\r\n"));
    EXPECT_THAT(Saved("KAZ\\Kaz.ini"), HasSubstr("WAVFILE,D:\\bell.wav\r\nNOSOUNDS,-1\r\n"));
    EXPECT_TRUE(app.settings.Flag("SilentStart"));
    EXPECT_THAT(Saved("KAZ\\Kaz.ini"), HasSubstr("SECONDBACKUPFOLDER,D:\\Copies\r\n"));
    EXPECT_TRUE(app.settingsInitialised);
}

TEST_F(frmOptionsTest, AnotherIdTakesTheEventsAlongAndPublishesThemAnew) {
    EXPECT_THAT(Saved("Share\\Shared_Fred.xml"), HasSubstr("Tea"));
    EXPECT_TRUE(Options([&] {
        Type(IDC_txtOwner, " Dad ");
        Save();
    }));
    EXPECT_THAT(Saved("KAZ\\Events.xml"), HasSubstr("<Owner>Dad</Owner>"));
    EXPECT_THAT(Saved("Share\\Shared_Fred.xml"), Not(HasSubstr("Tea")));
    EXPECT_THAT(Saved("Share\\Shared_Dad.xml"), HasSubstr("Tea"));

    // The old folder does not keep what the new one has.
    machine.files.CreateFolder("C:\\Other");
    EXPECT_TRUE(Options([&] {
        Type(IDC_txtSharedDBPath, "C:/Other\\");
        Save();
    }));
    EXPECT_THAT(Saved("Share\\Shared_Dad.xml"), Not(HasSubstr("Tea")));
    EXPECT_THAT(Saved("Other\\Shared_Dad.xml"), HasSubstr("Tea"));

    EXPECT_TRUE(Options([&] {
        // An empty ID that cannot be typed any more is no question.
        Type(IDC_txtOwner, "");
        Click(IDC_optSingle);
        EXPECT_EQ(Text(IDC_txtOwner), "Single");
        Click(IDC_optNetworked);
        EXPECT_EQ(Text(IDC_txtOwner), "");
        Click(IDC_optSingle);
        Save();
    }));
    EXPECT_EQ(app.Owner(), "Single");
    EXPECT_THAT(Saved("KAZ\\Events.xml"), HasSubstr("<Owner>Single</Owner>"));
    EXPECT_EQ(machine.files.Kind("C:\\Other\\Shared_Single.xml"), PathKind::Missing);
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(frmOptionsTest, WhatCannotBeUsedIsToldAndNothingIsStored) {
    machine.files.Put("C:\\file", "");
    machine.files.CreateFolder("C:\\Guarded");
    machine.files.At("C:\\Guarded").readOnly = true;
    const std::string settings = Saved("KAZ\\Kaz.ini");
    const std::string events = Saved("KAZ\\Events.xml");
    const struct {
        int control;
        const char* typed;
        const char* told;  // empty: asked and refused
    } cases[] = {
        {IDC_txtOwner, "  ", "You must specify a user ID"},
        {IDC_txtOwner, "..\\x", "cannot be used as an ID"},
        {IDC_txtOwner, "com1.old", "cannot be used as an ID"},
        {IDC_txtOwner, "not set", "Please choose a name of your own"},
        {IDC_txtSharedDBPath, "", "You need to supply the shared data path."},
        {IDC_txtSecondBackup, "C:\\file", "cannot be used for backups"},
        {IDC_txtSharedDBPath, "X:\\nowhere", "X:\\nowhere does not exist or cannot be reached"},
        {IDC_txtSharedDBPath, "C:\\Guarded", "no right to write"},
        {IDC_txtDatapath, "C:\\file", "is not a folder"},
        {IDC_txtDatapath, "C:\\file\\below", ""},
        {IDC_txtDatapath, "C:\\Guarded", "no right to write"},
    };
    for (const auto& each : cases) {
        EXPECT_FALSE(Options([&] {
            Type(each.control, each.typed);
            Save();
            EXPECT_TRUE(window->IsVisible()) << each.typed;
        }));
        const auto told = Told();
        if (*each.told) {
            EXPECT_THAT(told, ElementsAre(HasSubstr(each.told))) << each.typed;
        }
    }
    EXPECT_EQ(Saved("KAZ\\Kaz.ini"), settings);
    EXPECT_EQ(Saved("KAZ\\Events.xml"), events);
    // Without the network, the options that have nothing to do with it can be saved all the same.
    machine.files.Remove("C:\\Share\\KAZShared.ini");
    machine.files.Remove("C:\\Share\\Shared_Fred.xml");
    machine.files.Remove("C:\\Share");
    // The usual sound is beside the settings, wherever the data are.
    machine.files.CreateFolder("C:\\Data");
    app.settings.StoreSetting("DataPath", std::string("C:\\Data"));
    EXPECT_TRUE(Options([&] { Save(); }));
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_FALSE(app.settings.Flag("NoSounds"));
}

TEST_F(frmOptionsTest, AnotherDataFolderNeverLosesEvents) {
    machine.dialogs.yesNo = {true, false, true, true};
    const auto moveTo = [&](const std::string& folder) {
        return Options([&] {
            Type(IDC_txtDatapath, folder);
            Save();
        });
    };
    EXPECT_TRUE(moveTo("C:\\Empty\\"));  // created, nothing copied
    EXPECT_EQ(app.DataPath(), "C:\\Empty");
    EXPECT_EQ(app.events->RecordCount(), 0);
    EXPECT_THAT(Saved("KAZ\\Events.xml"), HasSubstr("Tea"));
    EXPECT_TRUE(moveTo("C:\\KAZ"));
    EXPECT_TRUE(moveTo("C:\\Copy"));  // created and copied
    EXPECT_EQ(app.events->RecordCount(), 1);
    EXPECT_THAT(Saved("Copy\\Events.xml"), HasSubstr("Tea"));
    EXPECT_THAT(Told(), IsEmpty());

    // A change that the old file could not take keeps the program there.
    machine.files.At("C:\\Copy\\Events.xml").readOnly = true;
    app.events->StoreRecord(OneOff("", "New", machine.clock.Today()), true);
    EXPECT_FALSE(app.events->SaveDB());
    EXPECT_TRUE(moveTo("C:\\KAZ"));
    EXPECT_EQ(app.DataPath(), "C:\\Copy");
    EXPECT_EQ(app.events->RecordCount(), 2);
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("KAZ stays with this folder")));
    machine.files.At("C:\\Copy\\Events.xml").readOnly = false;
    EXPECT_TRUE(moveTo("C:\\KAZ"));
    EXPECT_EQ(app.DataPath(), "C:\\KAZ");
    EXPECT_THAT(Saved("Copy\\Events.xml"), HasSubstr("New"));
}

TEST_F(frmOptionsTest, TheListOfUsersIsThatOfTheTypedFolder) {
    machine.files.CreateFolder("C:\\Other");
    machine.dialogs.yesNo = {false, true};
    Options([&] {
        Type(IDC_txtSharedDBPath, "C:\\Other");
        Click(IDC_cmdReload);
        EXPECT_THAT(window->Items(IDC_lstSharedUsers), IsEmpty());
        Type(IDC_txtOwner, "");
        Click(IDC_cmdAddUser);
        for (const char* id : {"Dad", "Mum", "Tim", "dad ", "a/b"}) {
            Type(IDC_txtOwner, id);
            Click(IDC_cmdAddUser);
        }
        Click(IDC_cmdDel);  // nothing selected
        EXPECT_THAT(Told(), ElementsAre("You need to enter an ID before you can add it",
                                        HasSubstr("\"a/b\" cannot be used"), HasSubstr("Select the users")));
        window->SetSelection(IDC_lstSharedUsers, {0, 2});
        Click(IDC_cmdDel);  // No
        EXPECT_THAT(window->Items(IDC_lstSharedUsers), ElementsAre("Dad", "Mum", "Tim"));
        window->SetSelection(IDC_lstSharedUsers, {0, 2});
        Click(IDC_cmdDel);
        machine.files.At("C:\\Other\\KAZShared.ini").locked = true;
        Click(IDC_cmdReload);
        EXPECT_THAT(Told(), ElementsAre(HasSubstr("could not be read or written: Permission denied")));
    });
    EXPECT_EQ(Saved("Other\\KAZShared.ini"), "Mum\r\n");
    EXPECT_EQ(app.Owner(), "Fred");
}

}  // namespace
}  // namespace kaz
