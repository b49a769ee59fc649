#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "platform/messages.h"

namespace korv {

/// Messages of a program without a user: they go to a stream. Questions are not shown; the program answers
/// them.
class ConsoleMessages final : public Messages {
 public:
  enum class When {
    AtOnce,
    OnFailure,  ///< Kept back until TellHeld(); what does not matter in the end is never told.
  };

  /// The answer to a message that asks something.
  using Answers = Answer (*)(const Message& message);

  /// Each message is preceded by `program` and a colon. `beforeOutput`, where given, is called first: a
  /// progress line makes room in it.
  ConsoleMessages(std::ostream& stream, std::string program, When when, Answers answer,
                  std::function<void()> beforeOutput = nullptr)
      : stream_(stream),
        program_(std::move(program)),
        when_(when),
        answer_(answer),
        beforeOutput_(std::move(beforeOutput)) {}

  Answer Show(const Message& message) override;
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override;

  /// The messages kept back, now that the program fails.
  void TellHeld();

 private:
  void Write(const std::string& text);

  std::ostream& stream_;
  std::string program_;
  When when_;
  Answers answer_;
  std::function<void()> beforeOutput_;
  std::string held_;
};

/// A text with CR LF line breaks as a terminal takes it.
std::string WithPlainLineEnds(std::string text);

}  // namespace korv
