#pragma once

#include "platform/attributes.hpp"
#include "platform/date.hpp"
#include "platform/regional.hpp"

#include <cstdint>
#include <string>
#include <string_view>

/// An item as it travels between the parts of the program, and how it is written in the columns of a row.
namespace varnholt::core {

// --- Items ---------------------------------------------------------------------------------------------------------

/// What travels between the parts of the program: a file by its bare name (from a panel) or its full path (from a
/// list), a folder by its full path.
struct Item {
  std::string path;
  bool isFolder = false;

  bool operator==(const Item&) const = default;
};

/// The full path of an item: a bare name in `folder`, or the full path that it is.
std::string entryPath(std::string_view path, std::string_view folder);

// --- Rows --------------------------------------------------------------------------------------------------------

/// The small icon of a row, by its number in the image list.
enum ItemClass : int { FolderClass = 6, FileClass = 7, HiddenClass = 8, ReadOnlyClass = 9 };

/// The class of a file. Exactly these values are told apart: with any further bit a file is a plain one.
ItemClass itemClass(platform::Attributes attributes);

/// Stands before the name in the row text of a folder.
inline constexpr std::string_view FolderRowPrefix = "\\ ";

std::string folderRowText(std::string_view name);
/// The name of a folder's row text.
std::string_view folderRowName(std::string_view rowText);
/// Base, point and extension, with the point also where there is no extension: what rows are compared by.
std::string rowCompareText(std::string_view base, std::string_view extension);

/// A count of bytes as the column "ByteSize:" and the dialogs show it: "1,234", "0".
std::string panelSize(std::uint64_t bytes, const platform::RegionalFormats& regional);
/// The hidden key of that column: twelve digits in groups, so that text order is the order of sizes; "0" for an empty
/// file.
std::string sizeKey(std::uint64_t bytes, const platform::RegionalFormats& regional);
/// The hidden key of the date column: whole days since 1899-12-30 in the local calendar, in fifteen digits.
std::string dateKey(const platform::CalendarTime& time);
/// The number in that key, negative before 1899-12-30.
std::int64_t dayNumber(const platform::CalendarTime& time);

// --- Dates and times -----------------------------------------------------------------------------------------------
// By the setting `DateTimeFormat`: "1" is the 12-hour form, anything else the 24-hour form.

/// "03-09-07  02:05  PM", "09-03-07  14:05".
std::string panelRowDate(std::string_view dateTimeFormat, const platform::CalendarTime& time);
/// "03-09-07  02:05 PM", "09-03-07  14:05".
std::string propertiesDate(std::string_view dateTimeFormat, const platform::CalendarTime& time);
/// "03-09-07  02:05:07 PM", "09-03-07  14:05:07".
std::string compareDate(std::string_view dateTimeFormat, const platform::CalendarTime& time);
/// "03-09-07 02:05 PM", "09-03-07 14:05".
std::string treeDate(std::string_view dateTimeFormat, const platform::CalendarTime& time);
/// "02:05:07 PM", "14:05:07".
std::string statusTime(std::string_view dateTimeFormat, const platform::CalendarTime& time);
/// "03-09-2007", "09-03-2007".
std::string statusDate(std::string_view dateTimeFormat, const platform::CalendarTime& time);

/// What a column of dates is called under the setting `DateSystem`: "2" created, "3" accessed, else modified.
std::string dateColumnTitle(std::string_view DateSystem);

// --- Properties --------------------------------------------------------------------------------------------------

/// "1,234  Bytes", "0  Bytes".
std::string bytesText(std::uint64_t bytes, const platform::RegionalFormats& regional);
/// As bytesText; "Emty Folder!" for a folder that holds no byte.
std::string folderSizeText(std::uint64_t bytes, const platform::RegionalFormats& regional);

/// Each word begins with a capital and goes on in small letters. Words are parted by blanks and control characters
/// alone, so of a path only the parts behind blanks get capitals.
std::string properCase(std::string_view text);
/// The same for names and paths: words begin behind blanks, backslashes, points and hyphens.
std::string properNames(std::string_view text);

}  // namespace varnholt::core
