// Opening what is dropped on the windows or given to the program.

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>

#include "desktop/main_window/files_together.h"
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

TEST_F(Opening, CountsSeveralFilesOfOneFolderTogether) {
  const std::string a = WriteFile("texts/a.txt", kText);
  const std::string c = WriteFile("texts/c.html", kText);
  WriteFile("texts/b.txt", kText);
  WriteFile("texts/sub/a.txt", kText);
  Type("txbFileFilepathSpecifications_1", "html");
  messages.Forget();
  Click("optFolder");
  Check("chkIncludeSubfolders");
  Open({a, c});
  EXPECT_EQ(messages.Only().Text, "Please open one file or one folder at a time.");
  EXPECT_EQ(messages.Only().Title, "Several files");
  EXPECT_EQ(messages.Only().Addition,
            "These files lie in one folder and can be counted together:\n" + PathOf("texts"));
  EXPECT_EQ(messages.Only().Buttons, Buttons::Ok);
  EXPECT_EQ(messages.Only().ExtraButton, "Count them &together");
  EXPECT_EQ(TextOf("txbFolder"), "") << "nothing is taken unless that is wanted";

  messages.WillAnswer(Question(), Answer::Extra);
  Open({a, c});
  EXPECT_TRUE(Checked("optFolder"));
  EXPECT_EQ(TextOf("txbFolder"), PathOf("texts"));
  EXPECT_EQ(TextOf("txbFileFilepathSpecifications_0"), "a.txt, c.html");
  EXPECT_EQ(TextOf("txbFileFilepathSpecifications_1"), "");
  EXPECT_FALSE(Checked("chkIncludeSubfolders"));
  Click("cmdListFiles");
  EXPECT_EQ(Output(),
            "{Folder} = " + PathOf("texts") + "\n" + WithNativePaths("{Folder}/a.txt\n{Folder}/c.html\n"));
}

TEST_F(Opening, OffersTheFolderOfFilesWhoseNamesAreNoPatterns) {
  const std::string a = WriteFile("texts/first part.txt", kText);
  const std::string b = WriteFile("texts/second part.txt", kText);
  Type("txbFileFilepathSpecifications_0", "*.txt");
  messages.Forget();
  messages.WillAnswer(Question(), Answer::Extra);
  Open({a, b});
  EXPECT_EQ(
      messages.Only().Addition,
      "These files lie in one folder, which can be counted with all that it holds:\n" + PathOf("texts"));
  EXPECT_EQ(messages.Only().ExtraButton, "Choose the &folder");
  EXPECT_TRUE(Checked("optFolder"));
  EXPECT_EQ(TextOf("txbFolder"), PathOf("texts"));
  EXPECT_EQ(TextOf("txbFileFilepathSpecifications_0"), "*.txt");
}

TEST_F(Opening, RefusesOtherThingsThatComeTogether) {
  const std::string a = WriteFile("one/a.txt", kText);
  const std::string b = WriteFile("two/b.txt", kText);
  const std::string settings = WriteFile("one/c.korv", "");
  const std::vector<std::string> cases[] = {{a, b},
                                            {a, settings},
                                            {a, PathOf("one")},
                                            {PathOf("one"), PathOf("two")},
                                            {a, PathOf("one/nowhere.txt")}};
  messages.WillAnswer(Question(), Answer::Extra);
  for (const auto& paths : cases) {
    messages.Forget();
    Open(paths);
    EXPECT_EQ(messages.Only().Text, "Please open one file or one folder at a time.") << paths[1];
    EXPECT_EQ(messages.Only().ExtraButton, "") << paths[1];
    EXPECT_EQ(TextOf("txbFolder"), "");
    EXPECT_EQ(TextOf("txbFile_0"), "");
  }
}

TEST(FilesTogether, KeepTheirNamesApartFromPatterns) {
  const std::pair<const char*, const char*> cases[] = {
      {"a.txt", "a.txt"}, {"b\xC3\xA4r.txt", "b\xC3\xA4r.txt"},
      {"a b.txt", ""},    {"a,b.txt", ""},
      {"a*.txt", ""},     {"a?.txt", ""},
      {"a~.txt", ""},     {"a;.txt", ""}};
  for (const auto& [name, patterns] : cases) {
    const std::filesystem::path file = PathFromText("/texts") / PathFromText(name);
    const auto together = TakeTogether(std::vector{file});
    ASSERT_TRUE(together.has_value());
    EXPECT_EQ(together->Folder, PathFromText("/texts"));
    EXPECT_EQ(together->Patterns, patterns) << name;
  }
  EXPECT_FALSE(TakeTogether({}).has_value());
}

TEST(FilesTogether, AreNoPatternsWhereThereAreTooMany) {
  std::vector<std::filesystem::path> files;
  for (int i = 0; i < 100; ++i) files.push_back(PathFromText("/texts/" + std::to_string(i)));
  EXPECT_THAT(TakeTogether(files)->Patterns, testing::EndsWith(", 99"));
  files.push_back(PathFromText("/texts/100"));
  EXPECT_EQ(TakeTogether(files)->Patterns, "");
}

}  // namespace
}  // namespace korv
