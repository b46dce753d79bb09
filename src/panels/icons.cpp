#include "panels/icons.hpp"

#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <charconv>

namespace varnholt::panels {
namespace {

namespace paths = platform::paths;

std::string trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\"");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t\"") - first + 1));
}

// An icon is a small picture: more than this is none.
constexpr std::uint64_t LargestIconFile = 4u << 20;

}  // namespace

void Icons::Iconshow(controls::PictureBox& picture, const std::string& path) const {
  picture.Picture = std::string();
  picture.PictureData = std::string();
  picture.IconName = std::string();
  const std::string extension = platform::foldCase(paths::extension(paths::fileName(path)));
  std::optional<std::string> icon =
      extension == "exe" ? ExtractIcon(path + ",0") : ExtractIcon(defaultIconOf(extension));
  if (!icon) icon = ExtractIcon(paths::join(program_.folders.systemFolder, "SHELL32.DLL") + ",0");
  if (icon) {
    picture.PictureData = *std::move(icon);
  } else {
    picture.IconName = program_.platform.fileTypes.iconName(extension);
  }
}

std::string Icons::defaultIconOf(const std::string& extension) const {
  if (extension.empty()) return {};
  const auto text = [this](const std::string& key) {
    return std::get<std::string>(
        program_.registry.GetRegistryValue(platform::RegistryRoot::ClassesRoot, key, "", std::string()));
  };
  const std::string className = text("." + extension);
  return className.empty() ? std::string() : text(className + "\\DefaultIcon");
}

std::optional<std::string> Icons::ExtractIcon(const std::string& defaultIcon) const {
  const auto comma = defaultIcon.rfind(',');
  const std::string path = trimmed(defaultIcon.substr(0, comma));
  if (path.empty()) return {};
  const std::string number = comma == std::string::npos ? "0" : trimmed(defaultIcon.substr(comma + 1));
  int index = 0;
  std::from_chars(number.data(), number.data() + number.size(), index);
  if (auto icon = program_.files().programIcon(path, static_cast<std::uint32_t>(index < 0 ? 0 : index))) return *icon;
  if (platform::foldCase(paths::extension(path)) != "ico") return {};
  auto bytes = program_.files().readFile(path, LargestIconFile);
  return bytes ? std::optional(*std::move(bytes)) : std::nullopt;
}

}  // namespace varnholt::panels
