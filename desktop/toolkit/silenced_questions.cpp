#include "desktop/toolkit/silenced_questions.h"

#include <QString>

namespace korv {
namespace {

const QLatin1String kGroup("silencedQuestions");

/// The names of the questions in the store: they stay when the enumeration changes.
const char* NameOf(Question question) {
  switch (question) {
    case Question::None:
      break;
    case Question::ReallyStop:
      return "ReallyStop";
    case Question::MinimumFrequency:
      return "MinimumFrequency";
    case Question::KeepFilter:
      return "KeepFilter";
    case Question::CountingInterrupted:
      return "CountingInterrupted";
    case Question::LargeInput:
      return "LargeInput";
    case Question::TextEncoding:
      return "TextEncoding";
    case Question::LargeDocx:
      return "LargeDocx";
    case Question::StopDocx:
      return "StopDocx";
    case Question::LargeWordList:
      return "LargeWordList";
    case Question::ClearWordFiles:
      return "ClearWordFiles";
    case Question::LoadCommonWords:
      return "LoadCommonWords";
    case Question::LoadWordFile:
      return "LoadWordFile";
    case Question::FirstCommonWords:
      return "FirstCommonWords";
    case Question::Relist:
      return "Relist";
    case Question::RereadSource:
      return "RereadSource";
    case Question::SetDefaults:
      return "SetDefaults";
    case Question::ReallyQuit:
      return "ReallyQuit";
    case Question::KeepSettings:
      return "KeepSettings";
    case Question::Reinitialize:
      return "Reinitialize";
    case Question::SeveralFiles:
      return "SeveralFiles";
    case Question::OnlySubfolders:
      return "OnlySubfolders";
  }
  return "None";
}

struct NamedAnswer {
  korv::Answer Answer;
  QLatin1String Name;
};
const NamedAnswer kDecisions[] = {{Answer::Yes, QLatin1String("Yes")},
                                  {Answer::No, QLatin1String("No")},
                                  {Answer::Extra, QLatin1String("Extra")}};

QString KeyOf(Question question) {
  return kGroup + u'/' + QLatin1String(NameOf(question));
}

}  // namespace

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
