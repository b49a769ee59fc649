#include "desktop/toolkit/silenced_questions.h"

#include <QString>

namespace korv {
namespace {

const QLatin1String kGroup("silencedQuestions");

struct NamedAnswer {
  korv::Answer Answer;
  QLatin1String Name;
};
const NamedAnswer kDecisions[] = {{Answer::Yes, QLatin1String("Yes")},
                                  {Answer::No, QLatin1String("No")},
                                  {Answer::Extra, QLatin1String("Extra")}};

QString KeyOf(Question question) {
  const std::string_view name = question.Name();
  return kGroup + u'/' + QLatin1String(name.data(), static_cast<qsizetype>(name.size()));
}

}  // namespace

const SilenceRule* RuleFor(std::span<const SilenceRule> rules, Question question) {
  for (const SilenceRule& rule : rules)
    if (rule.Question == question) return &rule;
  return nullptr;
}

std::optional<Answer> SilencedAnswer(const QSettings& store, Question question) {
  const QString kept = store.value(KeyOf(question)).toString();
  for (const NamedAnswer& decision : kDecisions) {
    if (kept == decision.Name) return decision.Answer;
  }
  return std::nullopt;
}

void Silence(QSettings& store, Question question, Answer answer) {
  for (const NamedAnswer& decision : kDecisions) {
    if (answer == decision.Answer) store.setValue(KeyOf(question), QString(decision.Name));
  }
}

bool AnySilenced(const QSettings& store) {
  for (const QString& key : store.allKeys()) {
    if (key.startsWith(kGroup + u'/')) return true;
  }
  return false;
}

void AskEverythingAgain(QSettings& store) {
  store.remove(kGroup);
}

}  // namespace korv
