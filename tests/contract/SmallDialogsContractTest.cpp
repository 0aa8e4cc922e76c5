#include "DialogStage.h"
#include "resources/resource.h"
#include "support/Endpoints.h"
#include "ui/ModalForms.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(DialogContract, CategoriesAreRenamedAllAtOnceOrNotAtAll) {
    app.layers.Layer(1, " Home  ");
    stage->OnModal(IDD_LAYERS, [&](Window& window) {
        EXPECT_EQ(window.Text(IDC_txtLayer), "Shared");
        EXPECT_EQ(window.Text(IDC_txtLayer + 1), "Home");
        EXPECT_EQ(window.Text(IDC_txtLayer + 20), "All Categories");
        stage->Type(window, IDC_txtLayer + 2, " Work");
        stage->Type(window, IDC_txtLayer + 3, "");
        stage->Click(window, IDC_cmdAccept);
    });
    EXPECT_TRUE(ShowCategories(app));
    EXPECT_EQ(app.layers.Layer(1), "Home");
    EXPECT_THAT(machine.files.Text("C:\\KAZ\\Kaz.ini"), HasSubstr("LAYER2, Work\r\nLAYER3,\r\n"));
    EXPECT_THAT(machine.files.Text("C:\\KAZ\\Kaz.ini"), HasSubstr("LAYER20,All Categories\r\n"));

    stage->OnModal(IDD_LAYERS, [&](Window& window) {
        stage->Type(window, IDC_txtLayer + 1, "Garden");
        stage->Type(window, IDC_txtLayer + 2, "<Desc>");
        stage->Click(window, IDC_cmdAccept);
        EXPECT_THAT(Told(), ElementsAre(HasSubstr("must not contain")));
        EXPECT_TRUE(window.IsVisible());
        stage->CloseBox(window);
    });
    EXPECT_FALSE(ShowCategories(app));
    EXPECT_EQ(app.layers.Layer(1), "Home");
}

TEST_F(DialogContract, TheEndOfTheProgramClosesAnOpenDialog) {
    stage->OnModal(IDD_ABOUT, [&](Window& window) {
        EXPECT_THAT(window.Text(IDC_lblVersion), StartsWith("Version "));
        stage->Click(window, IDC_cmdAboutHomePage);
        app.EndProgram();
    });
    ShowAbout(app);
    EXPECT_THAT(machine.shell.opened, ElementsAre(std::string(kHomePage)));
    EXPECT_EQ(app.openWindows.Count(), 0U);
}

TEST_F(DialogContract, AFailureIsReportedOnceUntilItIsClosedAndThenRests) {
    app.errors.ShowErr("Error 6 - Overflow in A of B", "More");
    Window* report = stage->Find(IDD_ERRORREPORT);
    ASSERT_NE(report, nullptr);
    EXPECT_TRUE(report->IsVisible());
    EXPECT_EQ(report->Text(IDC_txtError), "Error 6 - Overflow in A of B\r\nMore");
    EXPECT_THAT(report->Text(IDC_txtLog), HasSubstr("Overflow in A of B"));
    app.errors.ShowErr("Another one");
    EXPECT_EQ(app.openWindows.Count(), 1U);

    stage->Type(*report, IDC_txtUserMessage, "100%");
    stage->Click(*report, IDC_cmdSubmit);
    ASSERT_EQ(machine.shell.opened.size(), 1U);
    EXPECT_THAT(machine.shell.opened[0], StartsWith("mailto:kaz-bugs-2023@example.org?subject=Bug%20Report"));
    EXPECT_THAT(machine.shell.opened[0], HasSubstr("User:%20100%25%0D%0A"));

    machine.shell.refusal = ErrorNumber::FileNotFound;
    stage->Click(*report, IDC_cmdSubmit);
    EXPECT_THAT(machine.files.Text("C:\\KAZ\\FullLog.txt"), HasSubstr("100%\r\n1 09:00:00, "));
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("Your mail program could not be opened"),
                                    HasSubstr("saved as C:\\KAZ\\FullLog.txt, but")));

    stage->Click(*report, IDC_cmdCloseReport);
    app.openWindows.UnloadAll();
    app.errors.ShowErr("Error 6 - Overflow in A of B", "More");
    EXPECT_EQ(stage->Find(IDD_ERRORREPORT), nullptr);
    machine.clock.AdvanceMinutes(61);
    machine.files.Remove("C:\\KAZ\\Log_KAZ.txt");
    app.log.NOLOGGING(true);
    app.errors.ShowErr("Error 6 - Overflow in A of B", "More");
    ASSERT_NE(stage->Find(IDD_ERRORREPORT), nullptr);
    EXPECT_EQ(stage->Find(IDD_ERRORREPORT)->Text(IDC_txtLog), "No log file");
    app.EndProgram();
    app.errors.ShowErr("Too late");
    EXPECT_EQ(stage->Find(IDD_ERRORREPORT), nullptr);
}

}  // namespace
}  // namespace kaz
