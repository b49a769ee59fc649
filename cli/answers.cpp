#include "cli/answers.h"

#include "app/run/questions.h"
#include "app/settings/questions.h"
#include "sources/questions.h"
#include "wordlists/questions.h"

namespace korv {

namespace {

struct TerminalAnswer {
  korv::Question Question;
  korv::Answer Answer;
};

constexpr TerminalAnswer kAnswers[] = {
    // The options say what is wanted: nothing is changed or left undone for its size.
    {questions::kMinimumFrequency, Answer::No},
    {questions::kKeepFilter, Answer::Yes},
    {questions::kLargeInput, Answer::No},
    {questions::kLargeDocx, Answer::Yes},
    {questions::kLargeWordList, Answer::Yes},
    {questions::kLoadCommonWords, Answer::Yes},
    {questions::kLoadWordFile, Answer::Yes},
    {questions::kTextEncoding, Answer::Yes},
    // An interrupt stops at once, and lists what was found.
    {questions::kStopDocx, Answer::Yes},
    {questions::kCountingInterrupted, Answer::Yes},
    // A damaged settings file is refused.
    {questions::kSetDefaults, Answer::No},
};

}  // namespace

Answer AnswerInTerminal(const Message& message) {
  if (message.Question == Question()) return Answer::Ok;
  for (const TerminalAnswer& known : kAnswers)
    if (known.Question == message.Question) return known.Answer;
  return message.DefaultAnswer;
}

}  // namespace korv
