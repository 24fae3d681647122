#include <QLabel>

#include "adapters/qt/DateBoxWidget.h"
#include "adapters/qt/FlexGridView.h"
#include "adapters/qt/MessageDialog.h"
#include "adapters/qt/MonthPopup.h"
#include "adapters/qt/QtFixture.h"
#include "adapters/qt/SelectorWidget.h"
#include "adapters/qt/Theme.h"

namespace adapters::qt {
namespace {

/// Every kind of control on one form, also as a picture for the eye.
class SampleFormPicture : public QtTest {
 protected:
  void SetUp() override {
    form.txtName.SetText("محمدرضا گلستانی‌پور");
    form.txtNumber.SetText("14020509");
    form.datFrom.SetText("1404/02/15");
    form.sltCity.Select(2);
    form.cmbReport.SetListIndex(1);
    form.chkActive.SetChecked(true);
    form.txtNotes.SetText("بازديد از مشتريان منطقه شرق\nهمراه با کاتالوگ محصولات تازه (1404)");
    form.cmdOff.SetEnabled(false);
    form.datTo.SetEnabled(false);
    FillGrid();
  }

  void FillGrid() {
    controls::FlexGrid& grid = form.flx;
    grid.SetRows(26);
    grid.SetCols(5);
    int col = 0;
    for (const char* caption : {"رديف", "بازارياب", "تاريخ", "شرح", "تعداد مشتري"}) {
      grid.SetTextMatrix(0, col, caption);
      grid.SetColAlignment(col++, controls::FlexGrid::Alignment::kCentreCentre);
    }
    grid.SetColWidth(0, 800);
    grid.SetColWidth(1, 3000);
    grid.SetColWidth(2, 1500);
    grid.SetColWidth(3, 2600);
    grid.SetColWidth(4, 1500);
    for (int row = 1; row < grid.Rows(); ++row) {
      grid.SetTextMatrix(row, 0, std::to_string(row));
      grid.SetTextMatrix(row, 1, row % 2 ? "علی رضایی" : "فاطمه یوسفی کاشمری");
      grid.SetTextMatrix(row, 2, "1404/02/" + std::to_string(10 + row % 20));
      grid.SetTextMatrix(
          row, 3,
          "بازدید دوره‌ای مشتریان خیابان امام رضا و "
          "کوهسنگی");
      grid.SetTextMatrix(row, 4, std::to_string(row * 7));
    }
    grid.SetHighLight(controls::FlexGrid::HighLight::kNever);
    grid.SetFillStyle(controls::FlexGrid::FillStyle::kRepeat);
    for (const int row : {3, 4, 7}) {
      grid.SetRow(row);
      grid.SetCol(1);
      grid.SetColSel(4);
      grid.SetCellBackColor(controls::palette::kMark);
    }
  }
};

TEST_F(SampleFormPicture, MarkedRow_Shown_IsPureYellowAndBandsAlternate) {
  ShowForm();
  auto& view = WidgetOf<FlexGridView>(form.flx);
  const QImage picture = view.viewport()->grab().toImage();
  const auto groundOf = [&](int row) {
    return picture.pixelColor(view.CellPlace(row, 1).topLeft() + QPoint(3, 3));
  };
  EXPECT_EQ(groundOf(4), QColor(255, 255, 0));
  EXPECT_NE(groundOf(5), groundOf(6));
  SavePicture(*screen.WindowOf(form), "form");
  screen.WindowOf(form)->resize(1000, 620);
  SavePicture(*screen.WindowOf(form), "form-large");
}

TEST_F(SampleFormPicture, FocusedGrid_HighLightNever_StillFramesItsBlock) {
  ShowForm();
  auto& view = WidgetOf<FlexGridView>(form.flx);
  const QPoint corner = view.CellPlace(7, 1).topRight();
  const QColor before = view.viewport()->grab().toImage().pixelColor(corner);
  form.flx.SetFocus();
  ASSERT_TRUE(view.hasFocus());
  EXPECT_NE(view.viewport()->grab().toImage().pixelColor(corner), before);
  SavePicture(view, "grid-focus");
}

TEST_F(SampleFormPicture, Popups_Open_AreSeen) {
  ShowForm();
  auto& city = WidgetOf<SelectorWidget>(form.sltCity);
  Press(city, Qt::Key_F4);
  EXPECT_TRUE(city.Popup().isVisible());
  SavePicture(city.Popup(), "selector");
  Press(city.Popup(), Qt::Key_Escape);
  auto& date = WidgetOf<DateBoxWidget>(form.datFrom);
  Press(date, Qt::Key_F4);
  EXPECT_TRUE(date.Popup().isVisible());
  SavePicture(date.Popup(), "month");
}

TEST_F(SampleFormPicture, Dialogs_Shown_HoldTheirTexts) {
  const struct {
    MessageDialog::Kind kind;
    const char* name;
    QString technical;
  } kCases[] = {
      {MessageDialog::Kind::kInformation, "information", {}},
      {MessageDialog::Kind::kQuestion, "question", {}},
      {MessageDialog::Kind::kError, "error", "Run-time error '3704': Operation is not allowed"}};
  for (const auto& each : kCases) {
    MessageDialog::Content content;
    content.title = "اطلاع ";
    content.message = "قالبي براي گزارش گيري در سيستم موجود نيست .آن را ايجاد كنيد .";
    content.technical = each.technical;
    content.kind = each.kind;
    MessageDialog dialog(content);
    OnModalWindow([&](QWidget& window) {
      for (const QLabel* label : window.findChildren<QLabel*>()) {
        EXPECT_GE(label->height(), label->heightForWidth(label->width())) << each.name;
      }
      SavePicture(window, each.name);
      window.close();
    });
    EXPECT_EQ(dialog.Run(), MessageDialog::Answer::kClosed);
  }
}

}  // namespace
}  // namespace adapters::qt
