#include "core/item_text.hpp"

#include "core/format.hpp"
#include "core/text_character.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <array>

namespace varnholt::core {
namespace {

bool isFullPath(std::string_view path) {
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  return path.size() >= 3 && isLetter(path[0]) && path[1] == ':' && path[2] == '\\';
}

/// One use of dates in its two forms.
struct DatePictures {
  std::string_view twelveHour, other;
};

std::string dateBy(const DatePictures& pictures, std::string_view dateTimeFormat, const platform::CalendarTime& time) {
  return formatDate(dateTimeFormat == "1" ? pictures.twelveHour : pictures.other, time);
}

bool partsWords(char c) { return c == ' ' || c == '\0' || (c >= '\t' && c <= '\r'); }

}  // namespace

std::string entryPath(std::string_view path, std::string_view folder) {
  return isFullPath(path) ? std::string(path) : platform::paths::join(folder, path);
}

ItemClass itemClass(platform::Attributes attributes) {
  constexpr std::array<platform::Attributes, 2> readOnly{1, 33};
  constexpr std::array<platform::Attributes, 10> hidden{2, 3, 4, 6, 7, 34, 35, 36, 38, 39};
  if (std::find(readOnly.begin(), readOnly.end(), attributes) != readOnly.end()) return ReadOnlyClass;
  if (std::find(hidden.begin(), hidden.end(), attributes) != hidden.end()) return HiddenClass;
  return FileClass;
}

std::string folderRowText(std::string_view name) { return std::string(FolderRowPrefix).append(name); }

std::string_view folderRowName(std::string_view rowText) {
  return rowText.substr(std::min(FolderRowPrefix.size(), rowText.size()));
}

std::string rowCompareText(std::string_view base, std::string_view extension) {
  return std::string(base).append(".").append(extension);
}

std::string panelSize(std::uint64_t bytes, const platform::RegionalFormats& regional) {
  std::string text;
  appendGrouped(bytes, 1, regional.thousandsSign, text);
  return text;
}

std::string sizeKey(std::uint64_t bytes, const platform::RegionalFormats& regional) {
  constexpr int keyDigits = 12;
  if (bytes == 0) return "0";
  std::string text;
  appendGrouped(bytes, keyDigits, regional.thousandsSign, text);
  return text;
}

std::int64_t dayNumber(const platform::CalendarTime& time) {
  constexpr std::int64_t from18991230 = 25569;
  return platform::daysSince1970(time.year, time.month, time.day) + from18991230;
}

std::string dateKey(const platform::CalendarTime& time) {
  constexpr int keyDigits = 15;
  const std::int64_t days = dayNumber(time);
  std::string text = days < 0 ? "-" : "";
  appendGrouped(static_cast<std::uint64_t>(days < 0 ? -days : days), keyDigits, {}, text);
  return text;
}

std::string panelRowDate(std::string_view dateTimeFormat, const platform::CalendarTime& time) {
  return dateBy({"mm-dd-yy  hh:mm  AM/PM", "dd-mm-yy  hh:mm"}, dateTimeFormat, time);
}

std::string propertiesDate(std::string_view dateTimeFormat, const platform::CalendarTime& time) {
  return dateBy({"mm-dd-yy  hh:nn AM/PM", "dd-mm-yy  hh:nn"}, dateTimeFormat, time);
}

std::string compareDate(std::string_view dateTimeFormat, const platform::CalendarTime& time) {
  return dateBy({"mm-dd-yy  hh:nn:ss AM/PM", "dd-mm-yy  hh:nn:ss"}, dateTimeFormat, time);
}

std::string treeDate(std::string_view dateTimeFormat, const platform::CalendarTime& time) {
  return dateBy({"mm-dd-yy hh:mm AM/PM", "dd-mm-yy hh:mm"}, dateTimeFormat, time);
}

std::string statusTime(std::string_view dateTimeFormat, const platform::CalendarTime& time) {
  return dateBy({"hh:nn:ss AM/PM", "hh:nn:ss"}, dateTimeFormat, time);
}

std::string statusDate(std::string_view dateTimeFormat, const platform::CalendarTime& time) {
  return dateBy({"mm-dd-yyyy", "dd-mm-yyyy"}, dateTimeFormat, time);
}

std::string dateColumnTitle(std::string_view DateSystem) {
  return DateSystem == "3" ? "Date Accessed:" : DateSystem == "2" ? "Date Created:" : "Date Modified:";
}

std::string bytesText(std::uint64_t bytes, const platform::RegionalFormats& regional) {
  return panelSize(bytes, regional) + "  Bytes";
}

std::string folderSizeText(std::uint64_t bytes, const platform::RegionalFormats& regional) {
  return bytes == 0 ? "Emty Folder!" : bytesText(bytes, regional);
}

namespace {

template <class Parts>
std::string capitalized(std::string_view text, const Parts& parts) {
  std::string out;
  bool beginsWord = true;
  while (!text.empty()) {
    const std::string_view character = text.substr(0, firstCharacter(text).bytes);
    out += beginsWord ? platform::upperCase(character) : platform::foldCase(character);
    beginsWord = parts(character.front());
    text.remove_prefix(character.size());
  }
  return out;
}

}  // namespace

std::string properCase(std::string_view text) { return capitalized(text, partsWords); }

std::string properNames(std::string_view text) {
  return capitalized(text, [](char c) { return c == ' ' || c == '\\' || c == '.' || c == '-'; });
}

}  // namespace varnholt::core
