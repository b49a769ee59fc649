#include "report/writers/json_builder.h"

namespace korv {

JsonBuilder& JsonBuilder::Open(char begin, char end) {
  Put({&begin, 1});
  ends_ += end;
  first_ = true;
  return *this;
}

JsonBuilder& JsonBuilder::End() {
  built_ += ends_.back();
  ends_.pop_back();
  first_ = false;
  return *this;
}

JsonBuilder& JsonBuilder::Key(std::string_view name) {
  Put(text_.Of(name));
  built_ += ':';
  first_ = true;
  return *this;
}

JsonBuilder& JsonBuilder::Put(std::string_view value) {
  if (!first_) built_ += ',';
  built_ += value;
  first_ = false;
  return *this;
}

}  // namespace korv
