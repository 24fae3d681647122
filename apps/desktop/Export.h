#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Connection.h"
#include "platform/Excel.h"
#include "platform/FileSystem.h"
#include "platform/ReportEngine.h"

namespace desktop {

/// A program put into a file without a window. Everything here throws RuntimeError, in Persian and
/// then in the words of whoever failed.

enum class ExportKind { kPdf, kWorkbook, kText };

/// By the end of the file's name: .pdf, .xlsx or .txt, in large letters or small.
std::optional<ExportKind> ExportKindOf(std::string_view file);

/// 76 or 75 where no file of that name can stand.
void RequirePlace(const std::string& file);

/// 3021 for a program that the office does not have.
void RequireProgram(platform::Connection& connection, std::int32_t program);

/// The visits under Persian headings, by date, promoter and sequence: a heading and a line for each
/// visit, numbered from 1. The text's cells are separated by tabs; those and line breaks within a
/// cell become blanks.
void ExportWorkbook(platform::Connection& connection, std::int32_t program, platform::Excel& excel);
void ExportText(platform::Connection& connection, std::int32_t program, platform::FileSystem& files,
                const std::string& file);

/// Where the office's report template lies whose title, or file with or without its ending, is
/// `wanted` as a person looks it up; the first that the office lists where nothing is wanted. 53
/// where there is none.
std::string TemplatePath(platform::Connection& connection, platform::FileSystem& files,
                         const std::string& wanted);

/// The program through a report template, to where the engine puts what it prints.
void ExportReport(platform::ReportEngineFactory& reports, const std::string& templatePath,
                  const std::string& connectionString, std::int32_t program);

}  // namespace desktop
