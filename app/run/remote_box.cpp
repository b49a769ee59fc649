#include "app/run/remote_box.h"

#include <string>

namespace korv {

bool RemoteBox::OutputToTxb(std::string_view text) {
  if (full_) return false;
  const auto taken =
      calls_.Ask<bool>([&box = box_, copy = std::string(text)] { return box.OutputToTxb(copy); });
  full_ = !taken.value_or(false);
  return !full_;
}

void RemoteBox::Clear() {
  full_ = !calls_.Call([&box = box_] { box.Clear(); });
}

bool RemoteBox::Full() const {
  return full_ || calls_.Ask<bool>([&box = box_] { return box.Full(); }).value_or(true);
}

size_t RemoteBox::Kept() const {
  return calls_.Ask<size_t>([&box = box_] { return box.Kept(); }).value_or(0);
}

size_t RemoteBox::Room() const {
  return full_ ? 0 : calls_.Ask<size_t>([&box = box_] { return box.Room(); }).value_or(0);
}

}  // namespace korv
