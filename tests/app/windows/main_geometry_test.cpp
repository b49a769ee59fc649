// Where the controls of the main window and of those that it opens stand, in every state. Run once more on a
// screen of twice as many dots.

#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>

#include "app/windows/frm_help.h"
#include "tests/app/windows/geometry.h"
#include "tests/app/windows/scaled_window_test.h"

namespace korv {
namespace {

using testing::IsEmpty;

const char* const kText = "The white whale swam. The white whale swam.\n";

class MainGeometry : public ScaledWindowTest {
 protected:
  void ExpectAllIsWell(const std::string& state) {
    main->Timer1_Timer();
    EXPECT_THAT(GeometryFaultsInEverySize(*main), IsEmpty()) << state;
  }
  QWidget* TopLevel(const char* name) const {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == QLatin1String(name)) return widget;
    }
    return nullptr;
  }
};

INSTANTIATE_TEST_SUITE_P(AtFontsOfPercent, MainGeometry, testing::Values(100, 200),
                         testing::PrintToStringParamName());

const char* const kSources[] = {"optOnClipboard", "optInFile", "optFolder"};

TEST_P(MainGeometry, IsWellBeforeAndAfterARunOfEverySource) {
  clipboard.text = kText;
  const std::string file = WriteFile("texts/" + std::string(100, 'n') + ".txt", kText);
  for (const char* source : kSources) {
    Click(source);
    ExpectAllIsWell(std::string(source) + ", empty");
    Type("txbFile_0", file);
    Type("txbFolder", PathOf("texts"));
    Choose("cboPhraseLength_0", 0);
    ExpectAllIsWell(std::string(source) + ", chosen");
    Count();
    EXPECT_TRUE(main->HasResult()) << source;
    ExpectAllIsWell(std::string(source) + ", counted");
    Type("txbFilterWords", "whale");
    Click("cmdFilterResults");
    ExpectAllIsWell(std::string(source) + ", filtered");
    Type("txbFilterWords", "");
  }
}

TEST_P(MainGeometry, IsWellDuringARunOfEverySource) {
  OpenWithEveryTurn();
  clipboard.text = kText;
  const std::string file = WriteFile("texts/a.txt", kText);
  Type("txbFile_0", file);
  Type("txbFolder", PathOf("texts"));
  for (const char* source : kSources) {
    Click(source);
    bool looked = false;
    AtTheNextTurn([&] {
      looked = true;
      main->Timer2_Timer();
      main->tmrProgress_Timer();
      ExpectAllIsWell(std::string(source) + ", running");
    });
    Count();
    EXPECT_TRUE(looked) << source;
  }
}

TEST_P(MainGeometry, IsWellWithAListThatIsWrittenIntoAFile) {
  UseFile(kText);
  Type("txbFile_1", PathOf(std::string(150, 'o') + ".txt"));
  Count();
  ExpectAllIsWell("written");
}

TEST_P(MainGeometry, KeepsEveryGroupInItsPlaceWhenTheSourceChanges) {
  const char* groups[] = {"fraSource", "fraPhrases", "fraWordsToIgnore", "fraReport", "fraOutputFile"};
  std::map<std::string, QRect> places;
  for (const char* source : kSources) {
    Click(source);
    main->Timer1_Timer();
    QApplication::processEvents();
    for (const char* name : groups) {
      const QRect place = Find<QGroupBox>(name)->geometry();
      const auto [known, first] = places.emplace(name, place);
      EXPECT_EQ(known->second, place) << name << " with " << source;
    }
  }
}

TEST_P(MainGeometry, LeavesNoRoomUnused) {
  for (const QSize& size : {QSize(1000, 700), QSize(1600, 1400)}) {
    main->resize(size.expandedTo(main->minimumSizeHint()));
    for (const char* source : kSources) {
      Click(source);
      main->Timer1_Timer();
      QApplication::processEvents();
      auto* column = Find<QGroupBox>("fraOutputFile")->parentWidget();
      EXPECT_EQ(Find<QWidget>("fraOutputFile")->geometry().bottom(), column->rect().bottom()) << source;
      // The list of recent sources has what the page of the source leaves over.
      const auto* pages = Find<QWidget>("stkSource");
      EXPECT_LE(pages->height(), pages->sizeHint().height()) << source;
      const auto* recent = Find<QWidget>("lstRecent");
      EXPECT_LT(Find<QWidget>("fraSource")->height() - recent->geometry().bottom(), 16) << source;
    }
  }
}

TEST_P(MainGeometry, IsWellInTheHelpAndTheViewer) {
  Click("cmdHelp");
  Click("optOnClipboard");
  Click("cmdClipboardViewer");
  for (const char* name : {"frmHelp", "frmClipboard"}) {
    QWidget* window = TopLevel(name);
    ASSERT_NE(window, nullptr);
    EXPECT_THAT(GeometryFaultsInEverySize(*window), IsEmpty()) << name;
  }
  auto* help = dynamic_cast<frmHelp*>(TopLevel("frmHelp"));
  for (const char* searched : {"clipboard", "no such words"}) {
    help->txbSearch->setText(QLatin1String(searched));
    EXPECT_THAT(GeometryFaultsInEverySize(*help), IsEmpty()) << searched;
  }
}

}  // namespace
}  // namespace korv
