#pragma once

#include "platform/clipboard.h"

namespace korv {

class QtClipboard final : public Clipboard {
 public:
  std::string Text() const override;
};

}  // namespace korv
