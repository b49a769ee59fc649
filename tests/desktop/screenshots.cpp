// Pictures of the windows for the documentation: screenshots TEXT FOLDER [NAME...].
// Run by scripts/screenshots. TEXT is the file to be counted, shown as it is named. Without names
// ("main-light") all pictures are taken. On a screen of twice as many dots they are named
// "main-light-200.png".

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QStyleFactory>
#include <QTest>
#include <algorithm>
#include <cstdio>

#include "desktop/main_window/file_page.h"
#include "desktop/main_window/frm_main.h"
#include "desktop/main_window/phrases_panel.h"
#include "desktop/main_window/run_controller.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/main_window/source_surveyor.h"
#include "desktop/questions.h"
#include "desktop/results/contexts/contexts_pane.h"
#include "desktop/results/pictures/pictures_pane.h"
#include "desktop/results/result_frame.h"
#include "desktop/results/table/phrase_grid.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/settings_window/word_lists_panel.h"
#include "desktop/toolkit/application_name.h"
#include "desktop/toolkit/scheme_switch.h"
#include "desktop/toolkit/text.h"
#include "tests/desktop/fake_surroundings.h"

namespace korv {
namespace {

/// With so few colours that the file needs one byte a pixel: each channel rounded to a multiple of 4, which
/// nobody sees in a window.
QImage FewColours(QImage image) {
  image = image.convertToFormat(QImage::Format_RGB32);
  const auto rounded = [](int channel) { return channel >= 252 ? 255 : (channel + 2) / 4 * 4; };
  QSet<QRgb> colours;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb seen = image.pixel(x, y);
      const QRgb shown = qRgb(rounded(qRed(seen)), rounded(qGreen(seen)), rounded(qBlue(seen)));
      image.setPixel(x, y, shown);
      colours.insert(shown);
    }
  }
  // In order, so that the same window always gives the same bytes.
  QList<QRgb> table(colours.cbegin(), colours.cend());
  std::sort(table.begin(), table.end());
  return table.size() <= 256 ? image.convertToFormat(QImage::Format_Indexed8, table) : image;
}

bool Save(QWidget& window, const QString& folder, const QString& name) {
  const QStringList wanted = QApplication::arguments().mid(3);
  if (!wanted.isEmpty() && !wanted.contains(name)) return true;
  QApplication::processEvents();
  const int percent = qRound(100 * window.devicePixelRatioF());
  const QString scale = percent == 100 ? QString() : QStringLiteral("-%1").arg(percent);
  const QString path = folder + u'/' + QLatin1String(KORV_PICTURE_PREFIX) + name + scale + ".png";
  constexpr int kSmallest = 0;
  if (FewColours(window.grab().toImage()).save(path, "PNG", kSmallest)) return true;
  std::fprintf(stderr, "%s cannot be written\n", qPrintable(path));
  return false;
}

bool TakePictures(const std::string& text, const QString& folder, bool dark) {
  FakeSurroundings around;
  const auto files = MakeSystemFiles();
  around.Messages.WillAnswer(questions::kFirstCommonWords, Answer::Yes);
  Desktop desktop = around.On(*files);
  desktop.ProgramText = KORV_PROGRAM_TEXT;
  desktop.ProgramFolder = KORV_WORD_LISTS;
  desktop.StateFile = PathFromText(FromQt(around.Folder.filePath(QStringLiteral("korv.usr"))));
  frmMain window(desktop);
  window.show();
  if (!window.Form_Load()) return false;
  const auto untilIdle = [&window] {
    while (!window.Idle()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  };
  untilIdle();
  window.resize(1280, 860);
  const MainPanels& panels = window.Panels();
  panels.Source->File->txbFile->setText(ToQt(text));
  panels.Phrases->cboPhraseLength[0]->setCurrentIndex(1);
  panels.Source->Select(TextSource::SingleFile, ChangedBy::Program);
  window.Run().cmdCountPhrases_Click();
  untilIdle();
  const ResultFrame& frame = *panels.Frame;
  const auto untilViewsAreIdle = [&frame, &panels] {
    const auto idle = [&frame, &panels] {
      return frame.Table->Idle() && frame.Contexts->Idle() && frame.Pictures->Idle() &&
             panels.Surveyor->Idle();
    };
    while (!idle()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  };
  untilViewsAreIdle();
  frame.Table->tblPhrases->GoTo(1);
  frame.Contexts->ShowPhrase(frame.Table->CurrentPhrase());
  untilViewsAreIdle();
  window.Timer1_Timer();
  window.activateWindow();
  if (!QTest::qWaitForWindowActive(&window)) return false;

  const QString scheme = dark ? QStringLiteral("-dark") : QStringLiteral("-light");
  if (!Save(window, folder, QStringLiteral("main") + scheme)) return false;
  panels.Frame->ShowView(RunView::Report);
  if (!Save(window, folder, QStringLiteral("report") + scheme)) return false;
  panels.Frame->ShowView(RunView::Pictures);
  frame.Pictures->ShowPhrases({}, 0);
  untilViewsAreIdle();
  if (!Save(window, folder, QStringLiteral("pictures") + scheme)) return false;

  frmParams& params = window.Params();
  // The list shows where the program lies on this machine; pictures need not.
  params.Lists->cboWordsFile->setItemText(
      0, QDir::toNativeSeparators(QStringLiteral(KORV_PICTURE_PROGRAM_FOLDER "/cwds_en.txt")));
  params.Lists->txbWordsToIgnoreOrCount[0]->setPlainText(QStringLiteral("ibid vide viz sans ~ly"));
  params.resize(900, 740);
  params.show();
  QApplication::processEvents();
  // Some styles need more room.
  const auto* scroll = params.findChild<QScrollArea*>(QStringLiteral("scrSettings"));
  while (scroll->verticalScrollBar()->isVisible() && params.height() < 1000) {
    params.resize(params.width(), params.height() + 10);
    QApplication::processEvents();
  }
  return Save(params, folder, QStringLiteral("settings") + scheme);
}

}  // namespace
}  // namespace korv

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", KORV_WINDOW_SYSTEM);
  QApplication application(argc, argv);
  korv::NameApplication();
  QApplication::setStyle(QStyleFactory::create(QStringLiteral(KORV_PICTURE_STYLE)));
  if (argc < 3) {
    std::fprintf(stderr, "screenshots TEXT FOLDER [NAME...]\n");
    return 2;
  }
  if (!korv::TakePictures(argv[1], QString::fromLocal8Bit(argv[2]), false)) return 1;
  korv::SchemeSwitch().Turn(true);
  return korv::TakePictures(argv[1], QString::fromLocal8Bit(argv[2]), true) ? 0 : 1;
}
