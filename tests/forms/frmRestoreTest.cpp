#include "FormTest.h"
#include "core/Backup.h"

namespace kaz {
namespace {

class frmRestoreTest : public FormTest {
protected:
    frmRestoreTest() {
        for (const auto& [text, days] : {std::pair{"Dentist", 5}, {"Rent", 9}, {"Party", 20}, {"Old", 0}})
            Add(*app.events, text, days);
        Add(*app.expired, "Gone by", -5).IDCode = "200000";
        SaveAll();
        app.settings.StoreSetting("SecondBackupFolder", std::string("D:\\Second"));
        machine.files.CreateFolder("D:\\Second");
        EXPECT_TRUE(MakeAutoBackup(app, "Autobackup"));
        machine.files.Put("D:\\Second\\Broken.zip", "PK\3\4 no archive");
        machine.clock.AdvanceDays(1);
        app.events->DeleteRecords({"100000", "100003"});
        app.expired->DeleteRecords({"200000"});
        clsEvent rent = *app.events->ReadEvent("100001");
        rent.Desc("Rent and water");
        app.events->StoreRecord(rent);
        SaveAll();
    }
    void SaveAll() {
        EXPECT_TRUE(app.events->SaveDB());
        EXPECT_TRUE(app.expired->SaveDB());
    }
    void Restore(const std::function<void()>& user) {
        InModal(IDD_RESTORE, user);
        Click(IDM_RESTORE);
    }
    int Row(const char* name) {
        const auto names = Cells(IDC_lstBackups, 3);
        return static_cast<int>(std::find(names.begin(), names.end(), name) - names.begin());
    }
    std::vector<std::string> Cells(int list, int column) { return stage->Column(*window, list, column); }
    std::string Files() { return Saved(kEventFile) + Saved("C:\\KAZ\\Expired.xml"); }
};

TEST_F(frmRestoreTest, WhatIsNotHereAnyMoreIsSeenFirstAndComesBackAsOneStep) {
    OpenMainAndTick();
    main->ShowWindow();
    const std::string before = Files();
    Restore([&] {
        EXPECT_THAT(Cells(IDC_lstBackups, 3),
                    testing::UnorderedElementsAre("Wed Autobackup.zip", "Wed Autobackup.zip in D:\\Second",
                                                  "Broken.zip in D:\\Second (cannot be read)"));
        stage->SelectRows(*window, IDC_lstBackups, {Row("Broken.zip in D:\\Second (cannot be read)")});
        EXPECT_THAT(Text(IDC_lblBackup), HasSubstr("damaged"));
        EXPECT_FALSE(window->Enabled(IDC_cmdRestoreAll));
        stage->SelectRows(*window, IDC_lstBackups, {Row("Wed Autobackup.zip")});
        EXPECT_EQ("4", Cells(IDC_lstBackups, 1)[static_cast<std::size_t>(Row("Wed Autobackup.zip"))]);
        EXPECT_EQ("5 events: 3 not here any more, 1 different now.", Text(IDC_lblBackup));
        EXPECT_THAT(Cells(IDC_lstBackupEvents, 2), ElementsAre("Gone by", "Old", "Dentist", "Rent", "Party"));
        EXPECT_EQ("not here any more", Cells(IDC_lstBackupEvents, 0)[2]);

        stage->SelectRows(*window, IDC_lstBackupEvents, {2, 4});
        Click(IDC_cmdRestore);
        EXPECT_THAT(Told(), ElementsAre(StartsWith("1 event is back.")));
        EXPECT_EQ("here", Cells(IDC_lstBackupEvents, 0)[3]);
        machine.dialogs.yesNo = {true};
        Click(IDC_cmdRestoreAll);
        EXPECT_THAT(machine.dialogs.questions, ElementsAre(StartsWith("\"Rent\" is different now.")));
        EXPECT_THAT(Told(), ElementsAre(StartsWith("3 events are back.")));
        Click(IDC_cmdRestoreAll);
        EXPECT_THAT(Told(), ElementsAre(HasSubstr("Nothing is missing")));
        stage->CloseBox(*window);
    });
    EXPECT_EQ("Dentist|Rent|Party", Column());
    EXPECT_THAT(Saved(kEventFile), HasSubstr("<IDCode>100000</IDCode>"));
    EXPECT_THAT(Saved("C:\\KAZ\\Expired.xml"), HasSubstr("Old"));  // its day has passed since
    EXPECT_THAT(machine.files.FilesIn("C:\\KAZ\\Autobackups"),
                Contains(StartsWith("Events (before a restore, ")));
    for (int i = 0; i < 2; ++i)
        Click(IDM_UNDO);
    EXPECT_EQ(before.size(), Files().size());
    EXPECT_THAT(Files(), Not(HasSubstr("Dentist")));

    machine.clock.AdvanceMinutes(1);
    // Nothing is changed when the present state cannot be kept.
    Restore([&] {
        stage->SelectRows(*window, IDC_lstBackups, {Row("Wed Autobackup.zip")});
        machine.files.faults.FailAt(1, ErrorNumber::DiskFull, FaultInjector::Lasts::FromThenOn);
        Click(IDC_cmdRestoreAll);
        machine.files.faults.FailAt(0);
        EXPECT_THAT(Told(), ElementsAre(HasSubstr("nothing was restored")));
        stage->CloseBox(*window);
    });
    EXPECT_THAT(Files(), Not(HasSubstr("Dentist")));
}

}  // namespace
}  // namespace kaz
