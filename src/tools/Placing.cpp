#include "tools/Placing.h"

#include <algorithm>
#include <numeric>

namespace tools {

void ShareSpareWidth(controls::FlexGrid& grid, const std::vector<controls::Twips>& designed,
                     const std::vector<int>& sharing) {
  const controls::Twips scrollBar = 300;
  const controls::Twips used = std::accumulate(designed.begin(), designed.end(), scrollBar);
  const controls::Twips share =
      std::max(0.0, grid.Width() - used) / static_cast<double>(sharing.size());
  for (int col = 0; col < grid.Cols() && col < static_cast<int>(designed.size()); ++col) {
    const bool shares = std::find(sharing.begin(), sharing.end(), col) != sharing.end();
    grid.SetColWidth(col, designed[static_cast<std::size_t>(col)] + (shares ? share : 0));
  }
}

}  // namespace tools
