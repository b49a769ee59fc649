#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "report/writers/json_text.h"
#include "report/writers/number_text.h"

namespace korv {

/// Builds a JSON document of a few kilobytes: BeginObject(), Key("files").Value(7), End(). Commas come by
/// themselves; that brackets and keys fit together is the caller's care.
class JsonBuilder {
 public:
  JsonBuilder& BeginObject() { return Open('{', '}'); }
  JsonBuilder& BeginArray() { return Open('[', ']'); }
  /// Of the object or array that was begun last.
  JsonBuilder& End();
  JsonBuilder& Key(std::string_view name);

  JsonBuilder& Value(std::string_view text) { return Put(text_.Of(text)); }
  JsonBuilder& Value(const char* text) { return Value(std::string_view(text)); }
  template <std::integral Number>
  JsonBuilder& Value(Number number) {
    if constexpr (std::same_as<Number, bool>)
      return Put(number ? "true" : "false");
    else
      return Put(std::to_string(number));
  }
  JsonBuilder& Value(double number) { return Put(number_.Of(Cell(number))); }
  JsonBuilder& Null() { return Put("null"); }

  const std::string& Text() const { return built_; }

 private:
  JsonBuilder& Open(char begin, char end);
  JsonBuilder& Put(std::string_view value);

  std::string built_;
  std::string ends_;  ///< What ends what is open, the innermost last.
  bool first_ = true;
  JsonText text_;
  NumberText number_;
};

}  // namespace korv
