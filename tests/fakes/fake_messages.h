#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/messages.h"

namespace korv {

/// Messages that are answered beforehand, and remembered.
///
///   FakeMessages messages;
///   messages.WillAnswer(Question::LoadCommonWords, Answer::No);
///   LoadCommonWords(list, messages);
///   EXPECT_EQ(messages.Only().title, "Load common words file");
///
/// A question without an answer of its own gets its default, as if the user pressed Enter. Nothing is ever
/// silenced here: whether a question may be stands in the message that was shown.
class FakeMessages final : public Messages {
 public:
  struct InputBox {
    std::string prompt;
    std::string title;
    std::string initial;
  };

  void WillAnswer(Question question, Answer answer) { answers_[question] = answer; }
  /// The next input box gets this; empty for "Cancel". Boxes beyond the answers are cancelled.
  void WillType(std::optional<std::string> text) { typed_.push_back(std::move(text)); }

  Answer Show(const Message& message) override {
    if (onShow) onShow(message);
    shown.push_back(message);
    if (message.question != Question::None && message.title.empty())
      untitledQuestions.push_back(message.text);
    if (message.buttons == Buttons::Ok && message.extraButton.empty()) return Answer::Ok;
    const auto answer = answers_.find(message.question);
    return answer == answers_.end() ? message.defaultAnswer : answer->second;
  }

  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override {
    inputBoxes.push_back({prompt, title, initial});
    if (inputBoxes.size() > typed_.size()) return std::nullopt;
    return typed_[inputBoxes.size() - 1];
  }

  /// The one message that was shown; an empty one when there was none or more than one.
  Message Only() const { return shown.size() == 1 ? shown.front() : Message{}; }
  void Forget() { shown.clear(); }

  std::vector<Message> shown;  ///< In order, questions included.
  std::vector<InputBox> inputBoxes;
  std::function<void(const Message&)> onShow;  ///< Called before it is answered; may be empty.
  std::vector<std::string> untitledQuestions;  ///< Texts of questions without a title; never forgotten.

 private:
  std::map<Question, Answer> answers_;
  std::vector<std::optional<std::string>> typed_;
};

}  // namespace korv
