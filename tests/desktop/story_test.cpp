// One whole story of the main window, with everything real around it: the disk, the clipboard, the message
// boxes, the system's encoding. Only the choosers of files are answered beforehand, and somebody presses the
// buttons of the boxes.

#include <QApplication>
#include <QClipboard>
#include <QInputDialog>
#include <QMessageBox>
#include <QTimer>
#include <deque>

#include "desktop/dialogs/frm_popup.h"
#include "desktop/silence_rules.h"
#include "desktop/toolkit/desktop_launcher.h"
#include "desktop/toolkit/qt_clipboard.h"
#include "desktop/toolkit/qt_messages.h"
#include "desktop/toolkit/standard_places.h"
#include "desktop/toolkit/text.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// The user in front of the boxes: waits for those that are expected, in order, and presses what was said.
/// Any other box fails the test and is refused.
class Boxes final : public QObject {
 public:
  Boxes() {
    QObject::connect(&look_, &QTimer::timeout, this, [this] { Look(); });
    look_.start(5);
  }
  void Expect(std::string text, QMessageBox::StandardButton press) {
    expected_.push_back({std::move(text), press});
  }
  /// Whether all that were expected have come.
  bool AllSeen() const { return expected_.empty(); }

 private:
  struct Expected {
    std::string Text;
    QMessageBox::StandardButton Press;
  };

  void Look() {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    auto* box = qobject_cast<QMessageBox*>(dialog);
    auto* input = qobject_cast<QInputDialog*>(dialog);
    const std::string text = FromQt(box != nullptr     ? box->text()
                                    : input != nullptr ? input->labelText()
                                                       : QString());
    if (expected_.empty() || text.find(expected_.front().Text) == text.npos) {
      ADD_FAILURE() << "unexpected box: " << text;
      return dialog->reject();
    }
    const auto press = expected_.front().Press;
    expected_.pop_front();
    if (box != nullptr) return box->button(press)->click();
    press == QMessageBox::Ok ? dialog->accept() : dialog->reject();
  }

  QTimer look_;
  std::deque<Expected> expected_;
};

/// Western European, under the name by which this system knows it.
std::unique_ptr<CodePage> WesternEuropean() {
  auto page = CodePageOfName("1252");
  return page ? std::move(page) : CodePageOfName("ISO-8859-1");
}

class Story : public WindowTest {
 protected:
  Desktop Surroundings() override {
    Desktop desktop{.Messages = realMessages,
                    .Dialogs = dialogs,
                    .Clipboard = realClipboard,
                    .Launcher = *realLauncher,
                    .Files = *files,
                    .Loop = loop,
                    .Yielder = yielder,
                    .Clock = realClock,
                    .Numbers = {},
                    .ProgramText = programText,
                    .ProgramFolder = programFolder,
                    .StateFile = StateFilePathFor(QStringLiteral("korv120.exe"), ToQt(PathOf("data/Korv"))),
                    .Store = *store,
                    .Encoding = codePage.get()};
    return desktop;
  }

  QtMessages realMessages{*store, SilenceRules()};
  QtClipboard realClipboard;
  std::unique_ptr<Launcher> realLauncher = MakeDesktopLauncher();
  SystemClock realClock;
  std::unique_ptr<CodePage> codePage = WesternEuropean();
  Boxes boxes;
};

/// `bytes` has line ends, and every one is CR LF.
bool LinesEndForWindows(const std::string& bytes) {
  const auto count = [&](const char* part) {
    size_t found = 0;
    for (size_t at = bytes.find(part); at != bytes.npos; at = bytes.find(part, at + 1)) ++found;
    return found;
  };
  return count("\r\n") > 0 && count("\n") == count("\r\n") && count("\r") == count("\r\n");
}

TEST_F(Story, FromAnEmptyWindowToAReportAndBackAfterARestart) {
  ASSERT_NE(codePage, nullptr);
  // The system has a folder for the data of applications; ours in it is to be made.
  std::filesystem::create_directory(PathFromText(PathOf("data")));
  const std::string state = PathOf("data/Korv/korv120.usr");
  const std::string text =
      "Noch ein Café ohne Meer, noch ein Café ohne Meer. Ein Café ohne Meer genügt.\n"
      "The white whale swam. The white whale swam.\n";
  const std::string source = WriteFile("Süden/a text.txt", text);
  const std::string report = PathOf("Süden/a report.txt");

  // The first start, without any settings.
  boxes.Expect("Do you wish to ignore the most common words of English?", QMessageBox::No);
  ASSERT_TRUE(Start());
  EXPECT_TRUE(boxes.AllSeen());
  EXPECT_FALSE(std::filesystem::exists(PathFromText(state)));

  // A file is chosen, and phrases of 3 to 4 words are counted.
  dialogs.WillChoose(source);
  Click("cmdFile_0");
  EXPECT_EQ(TextOf("txbFile_0"), source);
  EXPECT_THAT(TextOf("lblFilesize"), HasSubstr(" " + std::to_string(text.size()) + " bytes"));
  Choose("cboPhraseLength_0", 1);
  Choose("cboPhraseLength_1", 2);
  boxes.Expect("UTF-8 text without a signature", QMessageBox::Yes);
  Count();
  EXPECT_TRUE(boxes.AllSeen());
  ASSERT_TRUE(main->Result().HasResult());
  EXPECT_THAT(Output(), StartsWith("There are 3 phrases with 3 to 4 words which occur at least twice.\n"));
  EXPECT_THAT(Output(), HasSubstr("    3  ein café ohne meer\n"));
  EXPECT_THAT(Output(), HasSubstr("    2  the white whale swam\n"));

  // Filtered, and listed in full again.
  Type("txbFilterWords", "WHALE");
  Click("cmdFilterResults");
  EXPECT_THAT(Output(), HasSubstr("the white whale swam"));
  EXPECT_THAT(Output(), Not(HasSubstr("café")));
  Click("cmdClear");

  // Phrases alone, one a line.
  Choose("cboDisplayFormat", 8);
  EXPECT_THAT(Output(), HasSubstr("\nein café ohne meer\n"));

  // The report goes into a file, in the encoding and with the line ends of Windows.
  dialogs.WillChoose(report);
  Click("cmdFile_1");
  EXPECT_EQ(TextOf("txbFile_1"), report);
  Choose("cboDisplayFormat", 0);
  EXPECT_THAT(Output(),
              EndsWith("Now writing to output file . . .\n3 phrases were written to " + report + ".\n"));
  const std::string written = ReadFile(report);
  EXPECT_THAT(written, HasSubstr("\t3\tein caf\xE9 ohne meer\t\r\n"));
  EXPECT_THAT(written, HasSubstr("\t2\tthe white whale swam\t\r\n"));
  EXPECT_TRUE(LinesEndForWindows(written));

  // The settings are saved, in a folder that is made for them, and nothing is left beside what was written.
  Click("cmdSaveState");
  EXPECT_EQ(main->findChild<frmPopUp*>()->lblMessage->text(), QStringLiteral("Settings saved"));
  EXPECT_TRUE(LinesEndForWindows(ReadFile(state)));
  EXPECT_THAT(ReadFile(state), HasSubstr('"' + source + "\"\r\n"));
  const auto filesIn = [&](const char* name) {
    const std::filesystem::directory_iterator entries(PathFromText(PathOf(name)));
    return std::distance(begin(entries), end(entries));
  };
  EXPECT_EQ(filesIn("data/Korv"), 1);
  EXPECT_EQ(filesIn("Süden"), 2);

  // Another start finds everything again.
  Click("cmdQuit");
  EXPECT_FALSE(main->isVisible());
  boxes.Expect("Do you wish to ignore the most common words of English?", QMessageBox::No);
  ASSERT_TRUE(Start());
  EXPECT_EQ(TextOf("txbFile_0"), source);
  EXPECT_EQ(TextOf("txbFile_1"), report);
  EXPECT_EQ(TextOf("cboPhraseLength_0"), "3");
  EXPECT_EQ(TextOf("cboPhraseLength_1"), "4");
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 0);
  EXPECT_FALSE(main->Result().HasResult());

  // The report that is there is written over only when the user says so.
  boxes.Expect("UTF-8 text without a signature", QMessageBox::Yes);
  boxes.Expect("To overwrite the current output file click on 'OK'.", QMessageBox::Ok);
  Choose("cboDisplayFormat", 8);
  Count();
  EXPECT_TRUE(boxes.AllSeen());
  EXPECT_THAT(ReadFile(report), HasSubstr("\r\nein caf\xE9 ohne meer\t\r\n"));
  EXPECT_THAT(ReadFile(report), Not(HasSubstr("Rank")));

  // What another program copied is counted, too.
  QApplication::clipboard()->setText(QStringLiteral("Voilà notre mer.\r\nVoilà notre mer.\r\n"));
  Click("optOnClipboard");
  Type("txbFile_1", "");
  Choose("cboDisplayFormat", 0);
  Count();
  EXPECT_TRUE(boxes.AllSeen());
  EXPECT_THAT(Output(), HasSubstr("  voilà notre mer\n"));
}

}  // namespace
}  // namespace korv
