// The windows on a disk of whose calls one after the other fails: whatever they write, the old file is there
// whole or the new one is; whatever they read, all of it counts or none; and the user is told.

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <optional>

#include "app/settings/questions.h"
#include "desktop/dialogs/frm_export.h"
#include "desktop/questions.h"
#include "desktop/results/run_tabs.h"
#include "desktop/toolkit/text.h"
#include "tests/desktop/window_test.h"
#include "wordlists/questions.h"

namespace korv {
namespace {

using testing::AnyOf;
using testing::IsEmpty;
using testing::IsSubsetOf;
using testing::Not;

const char* const kText =
    "The white whale swam. The old man wept aloud.\n"
    "The white whale swam. The old man wept aloud.\n";
const char* const kOld = "what was there before";

class Faults : public WindowTest {
 protected:
  void SetUp() override {
    disk_ = &OpenOnFakeFiles();
    disk_->Add("/texts/whale.txt", kText);
    disk_->AddFolder("/out");
    Type("txbFile_0", "/texts/whale.txt");
    Choose("cboPhraseLength_0", 0);
  }

  void Do(const char* name) const {
    for (QAction* menu : main->menuBar()->actions())
      for (QAction* action : menu->menu()->actions())
        if (WithoutMnemonic(action->text()) == QLatin1String(name)) {
          action->trigger();
          UntilIdle();
          return;
        }
    ADD_FAILURE() << name;
  }

  std::vector<std::string> NamesIn(const std::filesystem::path& place) const {
    std::vector<std::string> names;
    const auto listing = disk_->ListFolder(place);
    if (!listing) return names;
    for (const std::filesystem::path& name : listing->Files) names.push_back(PathToText(name));
    return names;
  }

  /// Has the first call fail, then the second one, and so on to the last one of `act`; `before` each and
  /// `after` each, which gets the number of the call. Returns how many there were.
  int FailEveryCall(const std::function<void()>& before, const std::function<void()>& act,
                    const std::function<void(int)>& after) {
    for (int call = 1;; ++call) {
      before();
      messages.Forget();
      disk_->FailCall(call, call % 2 == 0 ? FileFault::NoSpace : FileFault::PermissionDenied);
      act();
      const bool happened = disk_->FailureHappened();
      disk_->FailCall(0);
      if (!happened) return call - 1;
      after(call);
      // The program's own settings are in a folder of the temporary files here.
      if (!disk_->FileExists(StatePath())) {
        EXPECT_TRUE(disk_->TemporaryIsClean()) << call;
      }
    }
  }

  /// That of `act`, which writes `path`, no failure does harm to what was there: `old`, or nothing.
  void ExpectOldOrNew(const std::filesystem::path& path, const std::function<void()>& act,
                      const std::optional<std::string>& old = kOld) {
    const auto before = [&] {
      disk_->Erase(path);
      if (old) disk_->Add(path, *old);
    };
    before();
    act();
    const std::optional<std::string> whole = disk_->Content(path);
    ASSERT_NE(whole, old) << "nothing was written";
    const std::vector<std::string> names = NamesIn(path.parent_path());
    const int calls = FailEveryCall(before, act, [&](int call) {
      const std::optional<std::string> left = disk_->Content(path);
      EXPECT_THAT(left, AnyOf(old, whole)) << call;
      if (left == old) {
        EXPECT_THAT(Shown(), Not(IsEmpty())) << call;
      }
      EXPECT_THAT(NamesIn(path.parent_path()), IsSubsetOf(names)) << call;
    });
    EXPECT_GE(calls, 3) << "to open, to write, to put in place";
    EXPECT_EQ(disk_->Content("/texts/whale.txt"), kText);
  }

  /// That of `act`, which reads, no failure leaves anything between what `state` is before and what it
  /// becomes. `before` undoes it.
  void ExpectAllOrNothing(const std::function<void()>& before, const std::function<void()>& act,
                          const std::function<std::string()>& state) {
    before();
    const std::string old = state();
    act();
    const std::string whole = state();
    ASSERT_NE(whole, old);
    const int calls = FailEveryCall(before, act, [&](int call) {
      EXPECT_THAT(state(), AnyOf(old, whole)) << call;
      if (state() == old) {
        EXPECT_THAT(Shown(), Not(IsEmpty())) << call;
      }
    });
    EXPECT_GE(calls, 2) << "to open, to read";
  }

  FakeFiles* disk_ = nullptr;
};

TEST_F(Faults, AReportIsTheOldOneOrTheNewOne) {
  Type("txbFile_1", "/out/report.txt");
  ExpectOldOrNew("/out/report.txt", [&] {
    Check("chkDisableOutputToFile", false);
    Type("txbFile_1", "/out/report.txt");
    messages.WillType("/out/report.txt");
    Check("chkWarnOnOverwrite");
    Count();
  });
}

TEST_F(Faults, AListThatIsSavedIsTheOldOneOrTheNewOne) {
  Count();
  ExpectOldOrNew("/out/list.txt", [&] {
    dialogs.WillChoose("/out/list.txt");
    messages.WillType("/out/list.txt");
    Check("chkWarnOnOverwrite");
    Do("Save list as...");
  });
}

TEST_F(Faults, AKeptRunIsTheOldOneOrTheNewOne) {
  Count();
  ExpectOldOrNew("/out/mine.korvrun", [&] {
    dialogs.WillChoose("/out/mine.korvrun");
    Do("Keep run...");
  });
}

TEST_F(Faults, AnExportIsTheOldOneOrTheNewOneAndSoIsItsDescription) {
  Count();
  messages.WillAnswer(questions::kReplaceExport, Answer::Yes);
  const auto act = [&] {
    if (!main->findChild<frmExport*>()->isVisible()) Do("Export...");
    Type("txbExportFile", "/out/table.csv");
    Click("cmdExport");
    UntilIdle();
  };
  // A description of unknown origin, as one is that cannot be read, is left alone: the new one gets this
  // name.
  disk_->Add("/out/table.datapackage.json", "");
  ExpectOldOrNew("/out/table.csv", act);
  disk_->Erase("/out/table.datapackage.json");
  ExpectOldOrNew("/out/datapackage.json", act, std::nullopt);
}

TEST_F(Faults, SettingsAreTheOldOnesOrTheNewOnes) {
  ExpectOldOrNew("/out/mine.korv", [&] {
    dialogs.WillChoose("/out/mine.korv");
    Click("cmdSaveLoadState_1");
  });
  ExpectOldOrNew(StatePath(), [&] { Click("cmdSaveState"); });
}

TEST_F(Faults, SettingsAreLoadedAsAWholeOrNotAtAll) {
  Choose("cboMinimumFrequency", 6);
  dialogs.WillChoose("/out/mine.korv");
  Click("cmdSaveLoadState_1");
  ExpectAllOrNothing([&] { Choose("cboMinimumFrequency", 2); },
                     [&] {
                       dialogs.WillChoose("/out/mine.korv");
                       Click("cmdSaveLoadState_0");
                     },
                     [&] { return std::to_string(ItemOf("cboMinimumFrequency")); });
}

TEST_F(Faults, AKeptRunIsOpenedAsAWholeOrNotAtAll) {
  Count();
  dialogs.WillChoose("/out/mine.korvrun");
  Do("Keep run...");
  RunTabs& tabs = *Find<RunTabs>("tabRuns");
  ExpectAllOrNothing(
      [&] {
        while (tabs.count() > 1) {
          emit tabs.tabCloseRequested(tabs.count() - 1);
          UntilIdle();
        }
      },
      [&] {
        dialogs.WillChoose("/out/mine.korvrun");
        Do("Open kept run...");
      },
      [&] { return std::to_string(tabs.count()) + Output(); });
}

TEST_F(Faults, ATextIsCountedAsAWholeOrNotAtAll) {
  ExpectAllOrNothing([&] { Click("cmdClearOutput"); }, [&] { Count(); }, [&] { return Output(); });
}

TEST_F(Faults, AListOfWordsIsLoadedAsAWholeOrNotAtAll) {
  disk_->Add("/lists/list.txt", "the\r\nold\r\n");
  messages.WillAnswer(questions::kClearWordFiles, Answer::Yes);
  ExpectAllOrNothing([&] { Click("cmdClearWordsFile"); },
                     [&] {
                       dialogs.WillChoose("/lists/list.txt");
                       Click("cmdSelectWordsFile");
                     },
                     [&] { return TextOf("lblWordsState"); });
}

}  // namespace
}  // namespace korv
