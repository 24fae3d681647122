#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/FlexGrid.h"
#include "platform/RuntimeError.h"

/// A place for a grid that stands on no form.
class LoneContainer : public controls::Container {
 public:
  controls::Form& OwnForm() override { throw std::logic_error("no form"); }
};

/// Number of the error that `act` throws, 0 when it throws none.
inline int ErrorOf(const std::function<void()>& act) {
  try {
    act();
    return 0;
  } catch (const platform::RuntimeError& error) {
    return error.Number();
  }
}

/// The texts of a grid, row by row.
inline std::vector<std::vector<std::string>> TextsOf(const controls::FlexGrid& grid) {
  std::vector<std::vector<std::string>> texts;
  for (int row = 0; row < grid.Rows(); ++row) {
    auto& cells = texts.emplace_back();
    for (int col = 0; col < grid.Cols(); ++col) cells.emplace_back(grid.TextMatrix(row, col));
  }
  return texts;
}
