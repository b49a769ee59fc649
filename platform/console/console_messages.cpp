#include "platform/console/console_messages.h"

#include "platform/console/visible_controls.h"

namespace korv {

Answer ConsoleMessages::Show(const Message& message) {
  if (message.Buttons != Buttons::Ok) return answer_(message);
  // Some texts end in empty lines, to set them apart from what a window shows below.
  std::string text = program_ + ": " + message.Text;
  text.erase(text.find_last_not_of('\n') + 1);
  text += '\n';
  if (!message.Addition.empty()) text += message.Addition + "\n";
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
  stream_ << WithVisibleControls(text) << std::flush;
}

std::string WithPlainLineEnds(std::string text) {
  std::erase(text, '\r');
  return text;
}

}  // namespace korv
