#pragma once

#include "base/yielder.h"

namespace korv {

/// Lets the windows have their events between two steps of a long loop.
class QtYielder final : public Yielder {
 protected:
  void HandOver() override;
};

}  // namespace korv
