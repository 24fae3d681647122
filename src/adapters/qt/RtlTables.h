#pragma once

#include <QString>

namespace adapters::qt {

/// Qt's rich text lays the cells of a table from left to right, whatever the table's direction.
/// This turns the cells of every row around in tables that say dir="rtl", so that the first cell of
/// the text stands at the right; everything else stays as it is. Rows and cells need their end
/// tags; throws RuntimeError 321 otherwise. What stands between cells is dropped.
QString WithMirroredTables(const QString& html);

}  // namespace adapters::qt
