#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QLibraryInfo>
#include <QSessionManager>
#include <QSettings>
#include <QTranslator>
#include <cstdio>

#include "app/desktop_arguments.h"
#include "app/texts/program_folder.h"
#include "base/translation.h"
#include "desktop/desktop.h"
#include "desktop/main_window/frm_main.h"
#include "desktop/silence_rules.h"
#include "desktop/toolkit/application_name.h"
#include "desktop/toolkit/color_scheme.h"
#include "desktop/toolkit/desktop_launcher.h"
#include "desktop/toolkit/qt_clipboard.h"
#include "desktop/toolkit/qt_dialogs.h"
#include "desktop/toolkit/qt_event_loop.h"
#include "desktop/toolkit/qt_messages.h"
#include "desktop/toolkit/standard_places.h"
#include "desktop/toolkit/text.h"
#include "platform/freed_memory.h"
#include "platform/lack_of_memory.h"
#include "platform/locale_numbers.h"
#include "platform/process.h"

namespace {

/// For arguments that need no window. The program's exit status.
int Answer(const korv::DesktopArguments& arguments) {
  korv::AnswerInTheTerminal();
  const bool wrong = arguments.What == korv::DesktopArguments::Kind::Wrong;
  std::FILE* const stream = wrong ? stderr : stdout;
  const bool told = std::fputs(arguments.Text.c_str(), stream) >= 0 && std::fflush(stream) == 0;
  if (wrong) return 2;
  return told ? 0 : 1;
}

void Name(QApplication& application) {
  korv::NameApplication();
  QApplication::setApplicationVersion(QStringLiteral(KORV_VERSION));
  QApplication::setDesktopFileName(QStringLiteral("org.korv.Korv"));
  QIcon icon;
  for (const int size : {16, 32, 48, 128, 256}) {
    icon.addFile(QStringLiteral(":/korv/korv-%1.png").arg(size), QSize(size, size));
  }
  QApplication::setWindowIcon(icon);
  // A session that is restored would start the program with an option that it does not have.
  QObject::connect(&application, &QGuiApplication::saveStateRequest, &application,
                   [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); });
}

int Run(const std::vector<std::string>& paths) {
  // Everything that the program keeps lies in one folder, on every system.
  const std::filesystem::path stateFile = korv::StateFilePath();
  QSettings store(korv::ToQt(korv::PathToText(stateFile.parent_path() / "windows.conf")),
                  QSettings::IniFormat);
  korv::QtMessages messages(store, korv::SilenceRules());
  korv::QtDialogs dialogs;
  korv::QtClipboard clipboard;
  const auto launcher = korv::MakeDesktopLauncher();
  korv::QtEventLoop loop([&messages](const std::exception_ptr& thrown) {
    korv::Guarded(messages, "Run", [&] { std::rethrow_exception(thrown); })();
  });
  korv::TurnYielder yielder;
  const korv::SystemClock clock;
  const auto files = korv::MakeSystemFiles();
  const QString program = QDir::toNativeSeparators(QApplication::applicationFilePath());
  const auto folder = korv::ProgramFolder(*files, korv::PathFromText(korv::FromQt(program)));
  const auto encoding = korv::SystemCodePage();
  bool known = false;
  const korv::NumberFormat system = korv::NumberFormatOfLocale("", known);
  const korv::Desktop desktop{.Messages = messages,
                              .Dialogs = dialogs,
                              .Clipboard = clipboard,
                              .Launcher = *launcher,
                              .Files = *files,
                              .Loop = loop,
                              .Yielder = yielder,
                              .Clock = clock,
                              .Numbers = known ? system : korv::NumberFormat{},
                              .ProgramText = folder / korv::kProgramTextName,
                              .ProgramFolder = folder,
                              .StateFile = stateFile,
                              .Store = store,
                              .Encoding = encoding.get()};
  korv::frmMain window(desktop);
  if (!window.LoadProgramText()) return 1;
  window.show();
  korv::Guarded(desktop.Messages, "Form_Load", [&] { window.Form_Load(); })();
  // Closed already, while it was starting: nothing would end the events.
  if (!window.isVisible()) return 0;
  QStringList opened;
  for (const std::string& path : paths) opened.append(korv::ToQt(path));
  korv::Guarded(desktop.Messages, "OpenPaths", [&] { window.OpenGivenPaths(opened); })();
  if (!window.isVisible()) return 0;
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  korv::EndOnLackOfMemory("korv", 1);
  korv::GiveFreedArraysBack();
  const auto folder = korv::ProgramFolder(*korv::MakeSystemFiles(), korv::ExecutablePath(argv[0]));
  korv::UseTranslations(folder / korv::kTranslationsName);
  const auto arguments = korv::ReadDesktopArguments(korv::ProgramArguments(argc, argv), KORV_VERSION);
  if (arguments.What != korv::DesktopArguments::Kind::Open) return Answer(arguments);
  // The toolkit has options of its own, which are none of the program's.
  int toolkitArguments = 1;
  QApplication application(toolkitArguments, argv);
  Name(application);
  // The toolkit's own texts, when Korv's are in that language too.
  QTranslator toolkitTexts;
  const QString language = korv::ToQt(korv::TranslationLanguage());
  if (!language.isEmpty() &&
      toolkitTexts.load("qtbase_" + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(&toolkitTexts);
  }
  korv::FollowColorScheme();
  return Run(arguments.Paths);
}
