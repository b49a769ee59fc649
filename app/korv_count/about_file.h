#pragma once

#include <string>
#include <utility>

#include "platform/messages.h"

namespace korv {

/// Passes messages on, and adds a line with the file that they are about where they do not name it.
class AboutFile final : public Messages {
 public:
  /// `path` as the user gave it.
  AboutFile(Messages& messages, std::string path) : messages_(messages), path_(std::move(path)) {}

  Answer Show(const Message& message) override {
    if (path_.empty() || message.text.find(path_) != std::string::npos ||
        message.addition.find(path_) != std::string::npos)
      return messages_.Show(message);
    Message named = message;
    if (!named.addition.empty()) named.addition += "\r\n";
    named.addition += "File: " + path_;
    return messages_.Show(named);
  }
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override {
    return messages_.AskText(prompt, title, initial);
  }

 private:
  Messages& messages_;
  std::string path_;
};

}  // namespace korv
