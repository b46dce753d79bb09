#include "core/settings.hpp"

#include <array>
#include <charconv>
#include <cmath>

namespace varnholt::core {
namespace setting {
namespace {
constexpr std::array All{AutoPosition, DateSystem,    DateTimeFormat, FolderHistory,
                         GetColorMenu, GetColorState, LastCommand,    LastCommandNumber,
                         LockCommand,  MainViewState, SelectFolders,  Skintype,
                         SysHidShow,   Tip_State,     ValidateCM,     VDT_State,
                         VDTViewState, WinStart,      Left,           Top,
                         Width,        Hight,         Maximized,      Leftf9,
                         Topf9,        Widthf9,       Hightf9,        W1Col1,
                         W1Col2,       W1Col3,        W1Col4,         W2Col1,
                         W2Col2,       W2Col3,        W2Col4,         W3Col1,
                         W3Col2,       FileData,      ViewData,       ViewCheck,
                         Viewfrom,     Viewto,        DateCheck,      datefrom,
                         dateto,       SCRData,       Modem,          view1path,
                         view2path,    viewStorepath, viewpath};
}
std::span<const SettingKey> all() { return All; }
}  // namespace setting

namespace {

std::string numberText(double number) {
  char text[64];
  const auto end = std::to_chars(text, text + sizeof text, static_cast<float>(number)).ptr;
  return {text, end};
}

}  // namespace

std::string Settings::get(const SettingKey& key) const {
  std::string value = store_.get(key.application, key.section, key.key);
  return value.empty() ? std::string(key.fallback) : value;
}

std::optional<double> Settings::number(const SettingKey& key) const {
  std::string text = get(key);
  // The user may have moved between regions since it was stored.
  if (const auto comma = text.find(','); comma != std::string::npos) text[comma] = '.';
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return {};
  return value;
}

void Settings::save(const SettingKey& key, std::string_view value) {
  (void)store_.save(key.application, key.section, key.key, value);
}

void Settings::save(const SettingKey& key, double number) { save(key, numberText(number)); }

bool Settings::holds(const SettingKey& key) const { return !store_.get(key.application, key.section, key.key).empty(); }

void Settings::removeSection(const SettingKey& anyKeyOfIt) {
  (void)store_.removeSection(anyKeyOfIt.application, anyKeyOfIt.section);
}

void Settings::Batch::add(const SettingKey& key, std::string_view value) {
  writes_.push_back({std::string(key.application), std::string(key.section), std::string(key.key), std::string(value)});
}

void Settings::Batch::add(const SettingKey& key, double number) { add(key, numberText(number)); }

platform::Result<void> Settings::save(const Batch& batch) { return store_.saveAll(batch.writes_); }

}  // namespace varnholt::core
