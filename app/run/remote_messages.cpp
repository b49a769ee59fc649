#include "app/run/remote_messages.h"

#include "sources/questions.h"

namespace korv {

namespace {

/// What to answer when the program is about to end.
Answer EndingAnswer(const Message& message) {
  switch (message.Buttons) {
    case Buttons::Ok:
      return Answer::Ok;
    case Buttons::YesNo:
      return message.Question == questions::kStopDocx ? Answer::Yes : Answer::No;
    case Buttons::YesNoCancel:
      return Answer::Cancel;
  }
  return Answer::Ok;
}

}  // namespace

Answer RemoteMessages::Show(const Message& message) {
  before_();
  const auto answer = calls_.Ask<Answer>([&messages = messages_, message] { return messages.Show(message); });
  return answer.value_or(EndingAnswer(message));
}

std::optional<std::string> RemoteMessages::AskText(const std::string& prompt, const std::string& title,
                                                   const std::string& initial) {
  before_();
  using Text = std::optional<std::string>;
  return calls_
      .Ask<Text>([&messages = messages_, prompt, title, initial] {
        return messages.AskText(prompt, title, initial);
      })
      .value_or(std::nullopt);
}

}  // namespace korv
