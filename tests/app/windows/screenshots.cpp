// Pictures of the windows for the documentation: screenshots TEXT FOLDER.
// Run by scripts/screenshots. TEXT is the file to be counted, shown as it is named.

#include <QApplication>
#include <QPlainTextEdit>
#include <QSettings>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>

#include "app/windows/frm_main.h"
#include "app/windows/frm_params.h"
#include "platform/qt/color_scheme.h"
#include "platform/qt/qt_yielder.h"
#include "platform/qt/text.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fakes/fake_messages.h"

namespace korv {
namespace {

bool Save(QWidget& window, const QString& folder, const char* name) {
  QApplication::processEvents();
  const QString path = folder + u'/' + QLatin1String(name);
  if (window.grab().save(path)) return true;
  std::fprintf(stderr, "%s cannot be written\n", qPrintable(path));
  return false;
}

bool Picture(const std::string& text, const QString& folder, bool dark) {
  FakeMessages messages;
  FakeDialogs dialogs;
  FakeClipboard clipboard;
  FakeLauncher launcher;
  FakeClock clock;
  QtYielder yielder;
  const auto files = MakeSystemFiles();
  const QTemporaryDir scratch;
  QSettings store(scratch.filePath(QStringLiteral("store.ini")), QSettings::IniFormat);
  const NumberFormat numbers;
  messages.WillAnswer(Question::FirstCommonWords, Answer::Yes);
  frmMain window(Desktop{.messages = messages,
                         .dialogs = dialogs,
                         .clipboard = clipboard,
                         .launcher = launcher,
                         .files = *files,
                         .yielder = yielder,
                         .clock = clock,
                         .numbers = numbers,
                         .programText = KORV_PROGRAM_TEXT,
                         .programFolder = KORV_WORD_LISTS,
                         .stateFile = PathFromText(FromQt(scratch.filePath(QStringLiteral("korv.usr")))),
                         .store = store});
  window.show();
  if (!window.Form_Load()) return false;
  window.resize(1180, 800);
  window.txbFile[0]->setText(ToQt(text));
  window.cboPhraseLength[0]->setCurrentIndex(1);
  window.SelectSource(TextSource::SingleFile);
  window.cmdCountPhrases_Click();
  window.Timer1_Timer();
  QTest::qWait(50);

  frmParams& params = window.Params();
  // The list shows where the program lies on this machine; pictures need not.
  params.cboWordsFile->setItemText(0, QStringLiteral("/usr/share/korv/cwds_en.txt"));
  params.txbWordsToIgnoreOrCount[0]->setPlainText(QStringLiteral("ibid vide viz sans ~ly"));
  params.resize(900, 700);
  params.show();
  return Save(window, folder, dark ? "main-dark.png" : "main-light.png") &&
         Save(params, folder, dark ? "settings-dark.png" : "settings-light.png");
}

}  // namespace
}  // namespace korv

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setApplicationDisplayName(QStringLiteral("Korv"));
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  if (argc != 3) {
    std::fprintf(stderr, "screenshots TEXT FOLDER\n");
    return 2;
  }
  if (!korv::Picture(argv[1], QString::fromLocal8Bit(argv[2]), false)) return 1;
  QApplication::setPalette(korv::DarkPalette());
  return korv::Picture(argv[1], QString::fromLocal8Bit(argv[2]), true) ? 0 : 1;
}
