#include "platform/console/console_messages.h"

namespace korv {

namespace {

Answer AnswerTo(const Message& message) {
  switch (message.Question) {
    case Question::None:
      return Answer::Ok;
    case Question::MinimumFrequency:
    case Question::LargeInput:
    case Question::SetDefaults:
    case Question::FirstCommonWords:
    case Question::ClearWordFiles:
      return Answer::No;
    case Question::KeepFilter:
    case Question::CountingInterrupted:
    case Question::TextEncoding:
    case Question::LargeDocx:
    case Question::StopDocx:
    case Question::LargeWordList:
    case Question::LoadWordFile:
    case Question::LoadCommonWords:
      return Answer::Yes;
    case Question::ReallyStop:
    case Question::Relist:
    case Question::RereadSource:
    case Question::ReallyQuit:
    case Question::KeepSettings:
    case Question::Reinitialize:
    case Question::SeveralFiles:
    case Question::OnlySubfolders:
      break;
  }
  return message.DefaultAnswer;
}

}  // namespace

Answer ConsoleMessages::Show(const Message& message) {
  if (message.Buttons != Buttons::Ok) return AnswerTo(message);
  // Some texts end in empty lines, to set them apart from what a window shows below.
  std::string text = program_ + ": " + WithPlainLineEnds(message.Text);
  text.erase(text.find_last_not_of('\n') + 1);
  text += '\n';
  if (!message.Addition.empty()) text += WithPlainLineEnds(message.Addition) + "\n";
  if (when_ == When::AtOnce)
    Write(text);
  else
    held_ += text;
  return Answer::Ok;
}

std::optional<std::string> ConsoleMessages::AskText(const std::string&, const std::string&,
                                                    const std::string&) {
  return std::nullopt;
}

void ConsoleMessages::TellHeld() {
  if (!held_.empty()) Write(held_);
  held_.clear();
}

void ConsoleMessages::Write(const std::string& text) {
  if (beforeOutput_) beforeOutput_();
  stream_ << text << std::flush;
}

std::string WithPlainLineEnds(std::string text) {
  std::erase(text, '\r');
  return text;
}

}  // namespace korv
