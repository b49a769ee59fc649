#include "tests/desktop/window_test.h"

#include <QApplication>
#include <QDir>
#include <QTimer>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

#include "desktop/main_window/source_surveyor.h"
#include "desktop/questions.h"
#include "desktop/toolkit/application_name.h"
#include "sources/questions.h"

namespace korv {

WindowTest::WindowTest()
    : files(MakeSystemFiles()), programText(KORV_PROGRAM_TEXT), programFolder(KORV_WORD_LISTS) {
  store = std::make_unique<QSettings>(folder.filePath(QStringLiteral("store.ini")), QSettings::IniFormat);
}

WindowTest::~WindowTest() {
  End();
  EXPECT_THAT(messages.UntitledQuestions, testing::IsEmpty());
}

void WindowTest::MakeWindow() {
  End();
  main = std::make_unique<frmMain>(Surroundings());
  main->show();
}

Desktop WindowTest::Surroundings() {
  return {.Messages = messages,
          .Dialogs = dialogs,
          .Clipboard = clipboard,
          .Launcher = launcher,
          .Files = *files,
          .Loop = loop,
          .Yielder = *usedYielder,
          .Clock = clock,
          .Numbers = {},
          .ProgramText = programText,
          .ProgramFolder = programFolder,
          .StateFile = PathFromText(StatePath()),
          .Store = *store};
}

bool WindowTest::Start() {
  messages.WillAnswer(questions::kFirstCommonWords, Answer::No);
  MakeWindow();
  const bool started = main->Form_Load();
  // Tests that want the source to be looked at beside the window say so.
  if (started) main->Panels().Surveyor->tmrSurvey->setInterval(std::chrono::hours(24));
  UntilIdle();
  QApplication::processEvents();
  messages.Forget();
  if (started) main->Panels().Frame->ShowView(View);
  return started;
}

void WindowTest::End() {
  if (main == nullptr) return;
  // What a worker waits for in a test does not come any more.
  calls_->EndWaiting();
  main.reset();
  calls_ = std::make_unique<LoopCalls>(loop);
}

FakeFiles& WindowTest::OpenOnFakeFiles() {
  End();
  auto disk = std::make_unique<FakeFiles>();
  disk->Add(programText, ReadFile(PathToText(programText)));
  FakeFiles& opened = *disk;
  files = std::move(disk);
  EXPECT_TRUE(Start());
  return opened;
}

void WindowTest::OpenWithEveryTurn() {
  End();
  usedYielder = &everyTurn;
  EXPECT_TRUE(Start());
}

void WindowTest::UntilIdle() const {
  if (looking_ > 0 || main == nullptr || main->Idle()) return;
  constexpr std::chrono::seconds kFarTooLong{300};
  const auto end = std::chrono::steady_clock::now() + kFarTooLong;
  QTimer wake;
  wake.start(100);
  while (!main->Idle()) {
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    if (std::chrono::steady_clock::now() < end) continue;
    ADD_FAILURE() << "what goes on does not end";
    return;
  }
}

void WindowTest::AtEveryTurn(std::function<void()> act) {
  // Shared, so that what it counts goes on from turn to turn.
  everyTurn.OnTurn = [this, shared = std::make_shared<std::function<void()>>(std::move(act))] {
    InTheWindow([shared] { (*shared)(); });
  };
}

void WindowTest::AtTheNextTurn(std::function<void()> act) {
  everyTurn.OnTurn = [this, act = std::move(act), done = false]() mutable {
    if (!std::exchange(done, true)) InTheWindow(act);
  };
}

void WindowTest::InTheWindow(const std::function<void()>& act) {
  const auto look = [this, act] {
    const Looking looking(*this);
    act();
  };
  std::this_thread::get_id() == windowThread_ ? look() : static_cast<void>(calls_->Call(look));
}

void WindowTest::DuringTheRun(std::function<void()> act) {
  auto* timer = new QTimer(main.get());
  QObject::connect(timer, &QTimer::timeout, main.get(), [this, timer, act = std::move(act)] {
    const Looking looking(*this);
    if (!main->Running() || !Output().starts_with("Now counting")) return;
    main->Run().tmrProgress_Timer();
    if (TextOf("lblStatusWords").starts_with("0 ")) return;
    timer->stop();
    act();
  });
  timer->start(0);
}

void WindowTest::Click(const char* name) const {
  Find<QAbstractButton>(name)->click();
  UntilIdle();
}

void WindowTest::ClickInParams(const char* name) const {
  InParams<QAbstractButton>(name)->click();
  UntilIdle();
}

void WindowTest::UseLongText() {
  std::string text;
  unsigned seed = 1;
  while (text.size() < 4'000'000) {
    seed = seed * 1103515245 + 12345;
    text += "word";
    for (unsigned rest = (seed >> 16) % 5000; rest > 0; rest /= 26)
      text += static_cast<char>('a' + rest % 26);
    text += (seed >> 12) % 12 == 0 ? ".\n" : " ";
  }
  UseFile(text);
  messages.WillAnswer(questions::kLargeInput, Answer::No);
}

std::string WindowTest::WriteFile(const std::string& name, const std::string& bytes) const {
  const std::string text = PathOf(name);
  const std::filesystem::path path = PathFromText(text);
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
  return text;
}

std::string WindowTest::PathOf(const std::string& name) const {
  return QDir::toNativeSeparators(folder.filePath(QString::fromStdString(name))).toStdString();
}

std::string WindowTest::FolderPath() const {
  return QDir::toNativeSeparators(folder.path()).toStdString();
}

std::string WindowTest::ReadFile(const std::string& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(PathFromText(path), std::ios::binary).rdbuf();
  return bytes.str();
}

void WindowTest::Check(const char* name, bool checked) const {
  auto* box = Find<QAbstractButton>(name);
  if (box->isChecked() != checked) box->click();
  UntilIdle();
}

void WindowTest::Type(const char* name, const std::string& text) const {
  auto* control = Find<QWidget>(name);
  const QString typed = QString::fromStdString(text);
  if (auto* line = qobject_cast<QLineEdit*>(control)) {
    line->setText(typed);
    emit line->editingFinished();
  } else if (auto* box = qobject_cast<QPlainTextEdit*>(control)) {
    box->setPlainText(typed);
    QFocusEvent left(QEvent::FocusOut);
    QApplication::sendEvent(box, &left);
  } else {
    ADD_FAILURE() << name << " takes no text";
  }
  UntilIdle();
}

void WindowTest::Choose(const char* name, int item) const {
  auto* combo = Find<QComboBox>(name);
  combo->setCurrentIndex(item);
  emit combo->activated(item);
  UntilIdle();
}

std::string WindowTest::TextOf(const char* name) const {
  auto* control = Find<QWidget>(name);
  if (auto* line = qobject_cast<QLineEdit*>(control)) return line->text().toStdString();
  if (auto* label = qobject_cast<QLabel*>(control)) return label->text().toStdString();
  if (auto* combo = qobject_cast<QComboBox*>(control)) return combo->currentText().toStdString();
  if (auto* box = qobject_cast<QPlainTextEdit*>(control)) return box->toPlainText().toStdString();
  if (auto* button = qobject_cast<QAbstractButton*>(control)) {
    return WithoutMnemonic(button->text()).toStdString();
  }
  return {};
}

std::string WindowTest::Output() const {
  return TextOf("txbOutput");
}

std::vector<std::string> WindowTest::Shown() {
  UntilIdle();
  std::vector<std::string> shown;
  for (const Message& message : messages.Shown) shown.push_back(message.Title + " | " + message.Text);
  messages.Forget();
  return shown;
}

void WindowTest::CountCompared(const std::string& a, const std::string& b, const ComparisonChoice& how) {
  Type("txbFile_0", WriteFile("a.txt", a));
  main->Work().CompareWith(ChangedBy::User, ComparedWith{WriteFile("b.txt", b), how});
  Count();
}

}  // namespace korv

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", KORV_WINDOW_SYSTEM);
  QApplication application(argc, argv);
  korv::NameApplication();
  return RUN_ALL_TESTS();
}
