#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace korv {

enum class Icon { None, Information, Exclamation, Critical, Question };
enum class Buttons { Ok, YesNo, YesNoCancel };
enum class Answer { Ok, Yes, No, Cancel, Extra };

/// Names a question. Each room defines those that it asks, in its questions.h. Answers are kept under the
/// name, so it stays when the question is put in other words.
class Question {
 public:
  constexpr Question() = default;  ///< Nothing is asked; the only answer is Ok.
  /// `name` is a literal.
  explicit constexpr Question(std::string_view name) : name_(name) {}
  constexpr std::string_view Name() const { return name_; }
  friend constexpr auto operator<=>(const Question&, const Question&) = default;

 private:
  std::string_view name_;
};

/// One message box. Texts are UTF-8 with LF between lines. What a text is about stands in `Text`; the
/// members below `Question` add to it and may be left out without changing what Escape, Enter and a program
/// without windows do.
struct Message {
  std::string Text;
  std::string Title;
  korv::Icon Icon = korv::Icon::None;
  korv::Buttons Buttons = korv::Buttons::Ok;
  Answer DefaultAnswer = Answer::Ok;
  korv::Question Question{};
  /// A line below the text; empty for none.
  std::string Addition{};
  /// The caption of one further button, which answers Answer::Extra; empty for none. Never the default, and
  /// nobody chooses it but the user.
  std::string ExtraButton{};
  /// Captions for the buttons of Answer::Yes and Answer::No; empty for the usual words.
  std::string YesButton{};
  std::string NoButton{};
};

/// Shows messages and asks questions. Called on the one thread that runs the program's events;
/// returns when the user has answered.
class Messages {
 public:
  virtual ~Messages() = default;
  virtual Answer Show(const Message& message) = 0;
  /// Offers `initial` for editing. Empty when the user cancelled.
  virtual std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                             const std::string& initial) = 0;
};

}  // namespace korv
