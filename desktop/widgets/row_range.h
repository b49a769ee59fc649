#pragma once

namespace korv {

/// Rows First..Last of a table, both included.
struct RowRange {
  int First;
  int Last;
  bool operator==(const RowRange&) const = default;
};

}  // namespace korv
