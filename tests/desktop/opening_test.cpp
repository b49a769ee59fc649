// Opening what is dropped on the windows or given to the program.

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QListWidget>
#include <QMimeData>

#include "desktop/results/run_tabs.h"
#include "tests/desktop/window_test.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const char* const kText = "Call me Ishmael, said the old man, and call me Ishmael again.\n";

class Opening : public WindowTest {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }

  static QMimeData* DataOf(const std::vector<std::string>& paths) {
    QList<QUrl> urls;
    for (const std::string& path : paths) urls.append(QUrl::fromLocalFile(QString::fromStdString(path)));
    auto* data = new QMimeData;
    data->setUrls(urls);
    return data;
  }
  /// Drags files onto a control and lets them go there. Whether the control took them.
  static bool Drop(QWidget* target, const std::vector<std::string>& paths) {
    const std::unique_ptr<QMimeData> data(DataOf(paths));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
    QApplication::processEvents();
    return drop.isAccepted();
  }
  void Open(const std::vector<std::string>& paths) {
    QStringList opened;
    for (const std::string& path : paths) opened.append(QString::fromStdString(path));
    main->OpenPaths(opened);
  }
};

TEST_F(Opening, TakesWhatIsDroppedOnTheWindowAsTheSource) {
  const std::string path = WriteFile("a.txt", kText);
  EXPECT_TRUE(Drop(main.get(), {FolderPath()}));
  EXPECT_TRUE(Checked("optFolder"));
  EXPECT_EQ(TextOf("txbFolder"), FolderPath());
  EXPECT_TRUE(Drop(main.get(), {path}));
  EXPECT_TRUE(Checked("optInFile"));
  EXPECT_EQ(TextOf("txbFile_0"), path);
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
}

TEST_F(Opening, TakesWhatIsDroppedOnATextBoxAsTheSourceAndNotAsText) {
  const char* boxes[] = {"txbFile_0",
                         "txbFile_1",
                         "txbFolder",
                         "txbFileFilepathSpecifications_0",
                         "txbFileFilepathSpecifications_1",
                         "txbFilterWords",
                         "txbOutput",
                         "txbWordsToIgnoreOrCount_0",
                         "txbWordsToIgnoreOrCount_1"};
  int number = 0;
  for (const char* name : boxes) {
    const std::string path = WriteFile("text" + std::to_string(++number) + ".txt", kText);
    auto* target = Find<QWidget>(name);
    if (auto* text = qobject_cast<QPlainTextEdit*>(target)) target = text->viewport();
    const std::string before = TextOf(name);
    EXPECT_TRUE(Drop(target, {path})) << name;
    EXPECT_EQ(TextOf("txbFile_0"), path) << name;
    EXPECT_TRUE(name == boxes[0] || TextOf(name) == before) << name;
  }
}

TEST_F(Opening, LeavesTextsThatAreDroppedToTheirBox) {
  QMimeData data;
  data.setText(QStringLiteral("white whale"));
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(Find<QWidget>("txbFilterWords"), &enter);
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(Find<QWidget>("txbFilterWords"), &drop);
  QApplication::processEvents();
  EXPECT_EQ(TextOf("txbFilterWords"), "white whale");
  EXPECT_EQ(TextOf("txbFile_0"), "");
}

TEST_F(Opening, RefusesFilesDuringARunWithoutTakingTheirNamesForText) {
  UseFile(kText);
  const std::string other = WriteFile("other.txt", kText);
  OpenWithEveryTurn();
  UseFile(kText);
  const std::string before = TextOf("txbFile_0");
  bool asked = false;
  AtTheNextTurn([&] {
    asked = true;
    EXPECT_FALSE(Drop(main.get(), {other}));
    EXPECT_FALSE(Drop(Find<QWidget>("txbFilterWords"), {other}));
    Open({other});
  });
  Count();
  EXPECT_TRUE(asked);
  EXPECT_EQ(TextOf("txbFile_0"), before);
  EXPECT_EQ(TextOf("txbFilterWords"), "");
}

TEST_F(Opening, LoadsASettingsFile) {
  Choose("cboPhraseLength_1", 10);
  ASSERT_EQ(main->SaveStateTo(PathFromText(PathOf("mine.korv"))), "");
  for (const char* name : {"mine.korv", "MINE.KORV"}) {
    std::filesystem::rename(PathFromText(PathOf("mine.korv")), PathFromText(PathOf("renamed")));
    std::filesystem::rename(PathFromText(PathOf("renamed")), PathFromText(PathOf(name)));
    Choose("cboPhraseLength_1", 4);
    EXPECT_TRUE(Drop(main.get(), {PathOf(name)}));
    EXPECT_EQ(ItemOf("cboPhraseLength_1"), 10) << name;
    EXPECT_EQ(TextOf("lblState"), "Settings loaded from " + PathOf(name));
    EXPECT_EQ(TextOf("txbStateFile"), PathOf(name));
    EXPECT_EQ(TextOf("txbFile_0"), "") << "it is no text to be counted";
    std::filesystem::rename(PathFromText(PathOf(name)), PathFromText(PathOf("mine.korv")));
  }
}

TEST_F(Opening, TellsOfADamagedSettingsFile) {
  Open({WriteFile("mine.korv", "nonsense")});
  EXPECT_THAT(WindowTest::Shown(),
              testing::Contains(HasSubstr("Load settings | Error when attempting to load settings: ")));
}

TEST_F(Opening, TellsOfAFileThatDoesNotExist) {
  for (const char* name : {"nowhere.txt", "nowhere.korv"}) {
    messages.Forget();
    Open({PathOf(name)});
    EXPECT_EQ(messages.Only().Text, "Input file does not exist.");
    EXPECT_EQ(messages.Only().Title, "File not found");
    EXPECT_EQ(messages.Only().Addition, PathOf(name));
    EXPECT_EQ(TextOf("txbFile_0"), "");
  }
}

// ---- Several files

TEST_F(Opening, TakesSeveralFilesAndFoldersTogether) {
  const std::string a = WriteFile("one/first part.txt", kText);
  const std::string b = WriteFile("two/b.html", kText);
  Type("txbFolder", "/elsewhere");
  Open({a, b, PathOf("two")});
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
  EXPECT_TRUE(Checked("optFolder"));
  EXPECT_EQ(TextOf("lblTogether"), "2 files and 1 folder: first part.txt, b.html, two");
  EXPECT_TRUE(WindowTest::Shown("lblTogether"));
  EXPECT_FALSE(WindowTest::Shown("txbFolder"));
  EXPECT_EQ(TextOf("txbFolder"), "/elsewhere") << "the state file's folder stays";
  EXPECT_EQ(main->windowTitle(), "2 files and 1 folder - Korv");
  EXPECT_TRUE(Enabled("cmdClearFolder"));
  EXPECT_TRUE(Drop(main.get(), {a, b}));
  EXPECT_EQ(TextOf("lblTogether"), "2 files: first part.txt, b.html");
}

TEST_F(Opening, CountsSeveralFilesTogether) {
  const std::string a = WriteFile("one/a.txt", kText);
  const std::string b = WriteFile("two/b.txt", kText);
  WriteFile("two/c.txt", kText);
  Type("txbFileFilepathSpecifications_0", "*.html");
  Type("txbFile_1", PathOf("report.txt"));
  Open({a, b});
  Count();
  const std::string report = ReadFile(PathOf("report.txt"));
  EXPECT_THAT(report, testing::StartsWith("File: " + a + "\r\nFile: " + b +
                                          "\r\n2 files (in 2 folders) were scanned.\r\n"));
  EXPECT_THAT(report, HasSubstr("\t2\tcall ishmael said the old man"));
  EXPECT_EQ(Find<RunTabs>("tabRuns")->tabText(0), "2 files");
}

TEST_F(Opening, ListsTheFilesOfSeveralSourcesInFull) {
  const std::string a = WriteFile("one/a.txt", kText);
  const std::string b = WriteFile("two/b.txt", kText);
  WriteFile("two/c.js", kText);
  Open({a, PathOf("two")});
  Click("cmdListFiles");
  EXPECT_EQ(Output(), a + "\n" + b + "\n");
}

TEST_F(Opening, AnotherSourceMakesAnEndOfSeveral) {
  const std::string a = WriteFile("one/a.txt", kText);
  const std::string b = WriteFile("two/b.txt", kText);
  const auto several = [this] { return WindowTest::Shown("lblTogether") && !WindowTest::Shown("txbFolder"); };
  Open({a, b});
  Click("cmdClearFolder");
  EXPECT_FALSE(several());
  EXPECT_TRUE(WindowTest::Shown("txbFolder"));
  EXPECT_TRUE(Checked("optFolder"));
  Open({a, b});
  Open({PathOf("one")});
  EXPECT_FALSE(several());
  EXPECT_EQ(TextOf("txbFolder"), PathOf("one"));
  Open({a, b});
  Open({PathOf("one")});
  EXPECT_FALSE(several()) << "the folder that stood there before, too";
  Open({a, b});
  Click("optInFile");
  Click("optFolder");
  EXPECT_TRUE(several()) << "a look at the other kinds is no other choice";
  Open({a});
  Click("optFolder");
  EXPECT_FALSE(several());
}

TEST_F(Opening, TheOutputFileIsNoneOfSeveralSources) {
  const std::string a = WriteFile("one/a.txt", kText);
  const std::string b = WriteFile("two/b.txt", kText);
  Open({a, b});
  Type("txbFile_1", a);
  messages.Forget();
  Count();
  EXPECT_EQ(messages.Shown.back().Text, "The output file cannot be the same as the input file.");
  EXPECT_EQ(ReadFile(a), kText);
}

TEST_F(Opening, SeveralSourcesAreNotThereAfterARestart) {
  const std::string a = WriteFile("one/a.txt", kText);
  const std::string b = WriteFile("two/b.txt", kText);
  Open({a, b});
  Check("chkSaveStateOnQuit");
  Click("cmdQuit");
  ASSERT_TRUE(Start());
  EXPECT_TRUE(Checked("optFolder"));
  EXPECT_FALSE(WindowTest::Shown("lblTogether"));
  EXPECT_TRUE(WindowTest::Shown("txbFolder"));
}

TEST_F(Opening, LoadedSettingsMakeAnEndOfSeveralSources) {
  const std::string settings = PathOf("kept.korv");
  const std::string a = WriteFile("one/a.txt", kText);
  const std::string b = WriteFile("two/b.txt", kText);
  dialogs.WillChoose(settings);
  Open({a, b});
  ClickInParams("cmdSaveLoadState_1");
  ASSERT_TRUE(files->FileExists(PathFromText(settings)));
  Open({settings});
  EXPECT_FALSE(WindowTest::Shown("lblTogether"));
}

TEST_F(Opening, OpensSettingsAndKeptRunsOneAtATime) {
  const std::string a = WriteFile("one/a.txt", kText);
  for (const char* name : {"c.korv", "c.korvrun"}) {
    const std::string other = WriteFile(name, "");
    messages.Forget();
    Open({a, other});
    EXPECT_EQ(messages.Only().Text, "Please open settings and kept runs one at a time.");
    EXPECT_EQ(messages.Only().Title, "Several files");
    EXPECT_EQ(messages.Only().Addition, other);
    EXPECT_FALSE(Checked("optFolder"));
  }
}

TEST_F(Opening, ShowsNamesThatLookLikeRichTextAsTheyAre) {
  const std::string path = "/t/<b>bold<br>.txt";
  Type("txbFile_0", path);
  main->Panels().Source->SetPathToolTips();
  EXPECT_THAT(TipOf("txbFile_0"),
              AllOf(testing::StartsWith("<qt>"), HasSubstr("&lt;b&gt;bold&lt;br&gt;.txt")));
  main->Panels().Source->Remember(TextSource::SingleFile, path);
  EXPECT_THAT(Find<QListWidget>("lstRecent")->item(0)->toolTip().toStdString(), HasSubstr("&lt;b&gt;bold"));
  const std::string plain = "/t/plain.txt";
  Type("txbFile_0", plain);
  main->Panels().Source->SetPathToolTips();
  EXPECT_EQ(TipOf("txbFile_0"), plain);
}

TEST_F(Opening, SaysWhichOfSeveralFilesIsNotThere) {
  const std::string a = WriteFile("one/a.txt", kText);
  Open({a, PathOf("nowhere.txt")});
  EXPECT_EQ(messages.Only().Text, "Input file does not exist.");
  EXPECT_EQ(messages.Only().Addition, PathOf("nowhere.txt"));
  EXPECT_FALSE(Checked("optFolder"));
}

}  // namespace
}  // namespace korv
