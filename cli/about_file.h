#pragma once

#include <string>
#include <utility>

#include "base/translation.h"
#include "platform/messages.h"

namespace korv {

/// Passes messages on, and adds a line with the file or folder that they are about where they do not name it.
class AboutFile final : public Messages {
 public:
  /// `path` as the user gave it; `label` says what it is.
  AboutFile(Messages& messages, std::string path, std::string label = Tr("File"))
      : messages_(messages), path_(std::move(path)), label_(std::move(label)) {}

  Answer Show(const Message& message) override;
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override {
    return messages_.AskText(prompt, title, initial);
  }

 private:
  Messages& messages_;
  std::string path_;
  std::string label_;
};

}  // namespace korv
