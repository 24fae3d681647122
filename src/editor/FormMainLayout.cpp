// Where the controls of the editor stand, twips, how they follow the form's size and in which modes
// they are enabled. The form reads from right to left: the first button and the first field stand
// at the right.

#include "editor/FormMain.h"

namespace editor {

namespace {

using controls::Twips;

// What a desk of 853 x 480 has room for.
constexpr Twips kLeastWidth = 12300;
constexpr Twips kLeastHeight = 6450;

}  // namespace

void FormMain::PlaceControls() {
  constexpr unsigned kNever = 0;
  constexpr unsigned kSaved = kTemporary | kFinal;
  constexpr unsigned kOpen = kEdit | kCreate;
  constexpr unsigned kAny = kSaved | kOpen | kEmpty;
  Resize(15300, 9300);
  SetMinimumSize(kLeastWidth, kLeastHeight);
  // Each button of the upper row takes a tenth of what is won in width, and those at its right push
  // it along; the two long captions fit at the least width too.
  // clang-format off
  layout_.Set({
      // control          left   top  width  height  grows: width, left, height, top
      {frameHeader,       {  150,  690, 15000, 2280}, {1}},
      {txtID,             {11280,  360,  2100},       {0, 1},       {}, {lblID, 1350}, kNever},
      {txtCode,           { 4095,  360,  2100},       {0, 0.5},     {}, {lblCode, 1125}, kNever},
      {sltCreator,        { 7590,  825,  5790},       {0.5, 0.5},   {}, {lblCreator, 1350}, kNever},
      {datCreateDate,     { 4095,  825,  2100},       {0, 0.5},     {}, {lblCreateDate, 1125}, kNever},
      {sltSupervisor,     { 7590, 1290,  5790},       {0.5, 0.5},   "د", {lblSupervisor, 1350}, kOpen},
      {sltBranch,         {  180, 1290,  6015},       {0.5},        "ع", {lblBranch, 1125}, kOpen},
      {txtDescription,    {  180, 1755, 13200},       {1},          "ش", {lblDescription, 1350}, kOpen},
      {flxDetail,         {  150, 3090, 15000, 5490}, {1, 0, 1},    {}, "ويزيت ها"},
      {cmdAddBatch,       {13590, 8730,  1560,  420}, {0, 1, 0, 1}, "و", {}, kTemporary},
      {cmdSelectAll,      {11970, 8730,  1560,  420}, {0, 1, 0, 1}, "ه", {}, kTemporary},
      {cmdSelectInverse,  {10350, 8730,  1560,  420}, {0, 1, 0, 1}, "ك", {}, kTemporary},
      {cmdSelectNone,     { 8730, 8730,  1560,  420}, {0, 1, 0, 1}, "غ", {}, kTemporary},
      {cmdDeleteSelected, { 7110, 8730,  1560,  420}, {0, 1, 0, 1}, "ل", {}, kTemporary},
      {lblAdded,          {  150, 8655,  6810,  570}, {1, 0, 0, 1}},
      {cmdNew,            {13782,  150,  1368,  420}, {0.1, 0.9},   "ج", {}, kAny & ~kCreate},
      {cmdEdit,           {12354,  150,  1368,  420}, {0.1, 0.8},   "ص", {}, kTemporary},
      {cmdDelete,         {10926,  150,  1368,  420}, {0.1, 0.7},   "ح", {}, kTemporary},
      {cmdTempSave,       { 9498,  150,  1368,  420}, {0.1, 0.6},   "م", {}, kOpen},
      {cmdFinalSave,      { 8070,  150,  1368,  420}, {0.1, 0.5},   "ن", {}, kOpen},
      {cmdPreview,        { 6642,  150,  1368,  420}, {0.1, 0.4},   "پ", {}, kSaved},
      {cmdViewAccountDoc, { 4959,  150,  1623,  420}, {0.1, 0.3},   "س", {}, kSaved},
      {cmdBackToTemp,     { 3006,  150,  1893,  420}, {0.1, 0.2},   "ب", {}, kFinal},
      {cmdCancel,         { 1578,  150,  1368,  420}, {0.1, 0.1},   "ف", {}, kOpen},
      {cmdSearch,         {  150,  150,  1368,  420}, {0.1},        "ت"},
  });
  // clang-format on
  datToday.SetVisible(false);
  SetCancelButton(&cmdCancel);
  SetFirstFocus(&cmdNew);
}

}  // namespace editor
