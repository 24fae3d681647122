#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "batch/FormAddBatch.h"
#include "controls/Controls.h"
#include "controls/DateBox.h"
#include "controls/FlexGrid.h"
#include "controls/Form.h"
#include "controls/Selector.h"
#include "host/ProgramEditor.h"
#include "host/modMain.h"
#include "search/FormSearch.h"
#include "tools/FormPrint.h"
#include "tools/Layout.h"
#include "tools/RowMarks.h"

namespace editor {

/// The editor of one promoter program: its header and its visits, grouped by promoter, day and
/// notes. One instance serves the whole module. Its dialogs live as long: they keep their contents
/// from one use to the next, whether the editor is closed in between or not, until UnloadAll.
/// Errors of the database that a routine does not trap travel out of the event.
class FormMain : public controls::Form, public host::ProgramEditor {
 public:
  explicit FormMain(host::modMain& module);

  /// Both show the form, modally when modeless showing is refused (the host itself shows a modal
  /// form); both return false. What fails in showing is passed over: a visible form stays up.
  bool ClearShow() override;
  bool View(std::int32_t inProgramID) override;
  void UnloadAll() override;
  bool DialogIsUp() const override;
  /// Asks the question of cmdCancel while a header is open on the screen, which closing would drop;
  /// false when the user wants to go on with it.
  bool MayClose();

  /// For modules that post accounting documents: ties an object of a class to a document's line,
  /// once a class; a branch (class 19) is copied onto the line. Does nothing for ids below 1. The
  /// result is always false.
  bool InsertDocumentObject(std::int32_t& inDocID, std::int32_t& inRowNumber,
                            std::int32_t& inAccountID, std::int32_t& inClassID,
                            std::int32_t& inObjectID);
  /// For the same modules: the account of an asset group, -1 for a group that does not exist.
  std::int32_t GetAssetGroupAccountID(std::int32_t inGroupID);

  /// The dialogs, each made on first use.
  batch::FormAddBatch& BatchForm();
  search::FormSearch& SearchForm();
  tools::FormPrint& PrintForm();

  controls::Button cmdNew{*this, "cmdNew", "جديد"};
  controls::Button cmdEdit{*this, "cmdEdit", "اصلاح"};
  controls::Button cmdDelete{*this, "cmdDelete", "حذف"};
  controls::Button cmdTempSave{*this, "cmdTempSave", "ثبت موقت"};
  controls::Button cmdFinalSave{*this, "cmdFinalSave", "ثبت نهايي"};
  controls::Button cmdPreview{*this, "cmdPreview", "پيش نمايش"};
  controls::Button cmdViewAccountDoc{*this, "cmdViewAccountDoc", "سند حسابداري"};
  controls::Button cmdBackToTemp{*this, "cmdBackToTemp", "بازگشت به موقت"};
  controls::Button cmdCancel{*this, "cmdCancel", "انصراف"};
  controls::Button cmdSearch{*this, "cmdSearch", "جستجو"};

  controls::Frame frameHeader{*this, "frameHeader", "مشخصات برنامه"};
  controls::Label lblID{frameHeader, "lblID", "شماره رايانه اي:"};
  controls::TextBox txtID{frameHeader, "txtID"};
  controls::Label lblCode{frameHeader, "lblCode", "شماره برنامه:"};
  controls::TextBox txtCode{frameHeader, "txtCode"};
  controls::Label lblCreator{frameHeader, "lblCreator", "ايجاد كننده:"};
  controls::Selector sltCreator;
  controls::Label lblCreateDate{frameHeader, "lblCreateDate", "تاريخ ايجاد:"};
  controls::DateBox datCreateDate{frameHeader, "datCreateDate"};
  controls::Label lblSupervisor{frameHeader, "lblSupervisor", "مدير برنامه:"};
  controls::Selector sltSupervisor;
  controls::Label lblBranch{frameHeader, "lblBranch", "شعبه:"};
  controls::Selector sltBranch;
  controls::Label lblDescription{frameHeader, "lblDescription", "شرح:"};
  controls::TextBox txtDescription{frameHeader, "txtDescription"};
  /// The server's date of the day on which the form was loaded; never shown.
  controls::DateBox datToday{*this, "datToday"};

  controls::FlexGrid flxDetail{*this, "flxDetail"};
  controls::Button cmdAddBatch{*this, "cmdAddBatch", "افزودن ويزيت"};
  controls::Button cmdSelectAll{*this, "cmdSelectAll", "انتخاب همه"};
  controls::Button cmdSelectInverse{*this, "cmdSelectInverse", "انتخاب معكوس"};
  controls::Button cmdSelectNone{*this, "cmdSelectNone", "لغو انتخاب"};
  controls::Button cmdDeleteSelected{*this, "cmdDeleteSelected", "حذف از ليست"};
  /// What became of the last batch, until the list is read anew.
  controls::Label lblAdded{*this, "lblAdded"};

 protected:
  void FormLoad() override;
  void FormResize() override;
  /// The close box drops an open header only after the question of cmdCancel, and unloads, so that
  /// the next opening reads the host context anew.
  void FormClose() override;

 private:
  /// What the editor is doing with its program, a bit each.
  enum Mode : unsigned {
    kTemporary = 1,  // a program without a code is shown read-only
    kFinal = 2,      // one with a code is
    kEdit = 4,       // the header of an existing program may be changed
    kCreate = 8,     // a new header is being entered
    kEmpty = 16,     // nothing is loaded
  };

  /// Asks for a right; a refusal is shown to the user.
  bool Permitted(std::int32_t permission);

  // FormMainLayout.cpp
  void PlaceControls();

  // Opening.cpp
  void ReadInstallDirectory();
  void ShowForm();
  /// The caption and what is enabled, by the mode.
  void DisableComponents();
  void ShowEmpty();
  void ShowNew();
  void OpenProgram(std::int32_t programId);
  void OpenForEdit(std::int32_t programId);
  /// Leaves the editor in kEmpty for the caller to set a mode, also when it fails.
  void LoadProgram(std::int32_t programId);
  void ClearControls();
  void LoadHeader(std::int32_t programId);
  void LoadDetails(std::int32_t programId);
  std::int32_t ProgramID() const;

  // HeaderSaving.cpp
  void NewClick();
  void EditClick();
  void CancelClick();
  bool SaveProgram(bool inFinal);
  bool HeaderIsValid();
  void InsertHeader();
  void UpdateHeader(bool inFinal);
  void LogAction(std::int32_t eventId, std::string_view whatHappened);

  void SearchClick();

  // Finalising.cpp, Deletion.cpp
  void BackToTempClick();
  void DeleteClick();

  // DocumentLink.cpp
  void ViewAccountDocClick();
  std::unique_ptr<platform::AutomationObject> CreateDocumentViewer();

  // Printing.cpp
  void PreviewClick();
  bool PrintProgram(bool inPreview);

  // BatchRoutine.cpp
  void AddBatchClick();
  void InsertBatchDetail(std::int32_t& promoterId, std::string& dates, std::string& customerIds,
                         std::string& notes, bool& viewMode, std::int32_t& supervisor);

  // DetailGrid.cpp
  void DetailClick();
  void DetailDblClick();
  void DeleteSelectedClick();

  host::modMain& module_;
  tools::Layout layout_;
  std::unique_ptr<batch::FormAddBatch> batchForm_;
  std::unique_ptr<search::FormSearch> searchForm_;
  std::unique_ptr<tools::FormPrint> printForm_;
  std::string installDirectory_;
  Mode mode_ = kEmpty;
  tools::RowMarks marks_;
};

}  // namespace editor
