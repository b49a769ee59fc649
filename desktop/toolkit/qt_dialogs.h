#pragma once

#include "platform/dialogs.h"

namespace korv {

/// The desktop's own file and folder choosers.
class QtDialogs final : public Dialogs {
 public:
  std::optional<std::string> ChooseFileToOpen(const FileChoice& choice) override;
  std::optional<std::string> ChooseFileToSave(const FileChoice& choice) override;
  std::optional<std::string> ChooseFolder(const std::string& title, const std::string& initialPath) override;
};

}  // namespace korv
