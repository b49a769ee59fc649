#include "sources/detect/encoding_choice.h"

#include "base/translation.h"
#include "sources/questions.h"

namespace korv {

namespace {

bool AskToReadAsUtf8(Messages& messages) {
  return messages.Show({.Text = Tr("This file appears to be UTF-8 text without a signature.\n"
                                   "Do you wish to read it as UTF-8?"),
                        .Title = Tr("Text encoding"),
                        .Icon = Icon::Question,
                        .Buttons = Buttons::YesNo,
                        .DefaultAnswer = Answer::Yes,
                        .Question = questions::kTextEncoding}) == Answer::Yes;
}

}  // namespace

void EncodingChooser::BeginFolderRun() {
  folderRun_ = true;
  folderAnswer_.reset();
}

void EncodingChooser::EndFolderRun() {
  folderRun_ = false;
}

EncodingPlan EncodingChooser::PlanFor(const TextFacts& facts, const std::string& path, Messages& messages) {
  if (choice_ == EncodingChoice::Utf8) return TextEncoding::Utf8;
  if (choice_ == EncodingChoice::Ansi) return TextEncoding::Ansi;
  if (facts.IsUtf8) return TextEncoding::Utf8;
  return EncodingPlan([this, path, &messages] { return ConfirmUtf8(path, messages); });
}

bool EncodingChooser::ConfirmUtf8(const std::string& path, Messages& messages) {
  if (folderRun_) {
    if (!folderAnswer_) folderAnswer_ = AskToReadAsUtf8(messages);
    return *folderAnswer_;
  }
  auto answer = answers_.find(path);
  if (answer == answers_.end()) answer = answers_.emplace(path, AskToReadAsUtf8(messages)).first;
  return answer->second;
}

}  // namespace korv
