#include "cli/answers.h"

#include <gtest/gtest.h>

#include "app/run/questions.h"
#include "app/settings/questions.h"
#include "sources/questions.h"
#include "wordlists/questions.h"

namespace korv {
namespace {

struct AnswerCase {
  korv::Question Question;
  korv::Answer Answer;
};

TEST(AnswersInTerminal, DoNotDependOnWhatEnterWouldGive) {
  const AnswerCase cases[] = {
      {questions::kMinimumFrequency, Answer::No},
      {questions::kKeepFilter, Answer::Yes},
      {questions::kCountingInterrupted, Answer::Yes},
      {questions::kLargeInput, Answer::No},
      {questions::kTextEncoding, Answer::Yes},
      {questions::kLargeDocx, Answer::Yes},
      {questions::kStopDocx, Answer::Yes},
      {questions::kLargeWordList, Answer::Yes},
      {questions::kLoadWordFile, Answer::Yes},
      {questions::kLoadCommonWords, Answer::Yes},
      {questions::kSetDefaults, Answer::No},
      {Question(), Answer::Ok},
  };
  for (const AnswerCase& c : cases)
    for (const Buttons buttons : {Buttons::YesNo, Buttons::YesNoCancel})
      for (const Answer byDefault : {Answer::Yes, Answer::No, Answer::Cancel})
        EXPECT_EQ(AnswerInTerminal({.Text = "?",
                                    .Title = "?",
                                    .Buttons = buttons,
                                    .DefaultAnswer = byDefault,
                                    .Question = c.Question,
                                    .ExtraButton = "Else"}),
                  c.Answer)
            << c.Question.Name();
}

TEST(AnswersInTerminal, ToOtherQuestionsAreTheDefault) {
  for (const Answer byDefault : {Answer::Yes, Answer::No, Answer::Cancel})
    for (const Question question : {questions::kReallyStop, Question("SomethingElse")})
      EXPECT_EQ(AnswerInTerminal({.Text = "?",
                                  .Title = "?",
                                  .Buttons = Buttons::YesNo,
                                  .DefaultAnswer = byDefault,
                                  .Question = question}),
                byDefault);
}

}  // namespace
}  // namespace korv
