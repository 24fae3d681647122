#pragma once

#include <cstdint>

namespace host {

/// The program editor as the control sees it.
class ProgramEditor {
 public:
  virtual ~ProgramEditor() = default;
  /// Opens the editor empty. Always false.
  virtual bool ClearShow() = 0;
  /// Opens the editor on a program; an id of 0 or less opens it empty. Always false.
  virtual bool View(std::int32_t inProgramID) = 0;
  /// Closes the editor, without a question, and its dialogs with all that they keep; the next
  /// opening loads them anew. For forms that were loaded for another connection.
  virtual void UnloadAll() = 0;
  /// One of the editor's own dialogs is up: a routine of the editor waits for what the user does.
  virtual bool DialogIsUp() const = 0;
};

}  // namespace host
