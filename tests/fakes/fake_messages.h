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
///   messages.WillAnswer(questions::kLoadCommonWords, Answer::No);
///   LoadCommonWords(list, messages);
///   EXPECT_EQ(messages.Only().Title, "Load common words file");
///
/// A question without an answer of its own gets its default, as if the user pressed Enter. Nothing is ever
/// silenced here.
class FakeMessages final : public Messages {
 public:
  struct InputBox {
    std::string Prompt;
    std::string Title;
    std::string Initial;
  };

  void WillAnswer(Question question, Answer answer) { answers_[question] = answer; }
  /// The next input box gets this; empty for "Cancel". Boxes beyond the answers are cancelled.
  void WillType(std::optional<std::string> text) { typed_.push_back(std::move(text)); }

  Answer Show(const Message& message) override {
    if (OnShow) OnShow(message);
    Shown.push_back(message);
    if (message.Question != Question() && message.Title.empty()) UntitledQuestions.push_back(message.Text);
    if (message.Buttons == Buttons::Ok && message.ExtraButton.empty()) return Answer::Ok;
    const auto answer = answers_.find(message.Question);
    return answer == answers_.end() ? message.DefaultAnswer : answer->second;
  }

  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override {
    InputBoxes.push_back({prompt, title, initial});
    if (InputBoxes.size() > typed_.size()) return std::nullopt;
    return typed_[InputBoxes.size() - 1];
  }

  /// The one message that was shown; an empty one when there was none or more than one.
  Message Only() const { return Shown.size() == 1 ? Shown.front() : Message{}; }
  void Forget() { Shown.clear(); }

  std::vector<Message> Shown;  ///< In order, questions included.
  std::vector<InputBox> InputBoxes;
  std::function<void(const Message&)> OnShow;  ///< Called before it is answered; may be empty.
  std::vector<std::string> UntitledQuestions;  ///< Texts of questions without a title; never forgotten.

 private:
  std::map<Question, Answer> answers_;
  std::vector<std::optional<std::string>> typed_;
};

}  // namespace korv
