#include "platform/posix/program_resources.hpp"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace varnholt::platform::posix {
namespace {

constexpr std::uint32_t iconType = 3, iconGroupType = 14, versionType = 16;  // RT_ICON, RT_GROUP_ICON, RT_VERSION
constexpr std::uint32_t fixedSignature = 0xFEEF04BD;                         // VS_FIXEDFILEINFO
constexpr std::uint32_t subFolderBit = 0x80000000;
constexpr std::size_t largestResource = 65536, largestIcon = 1 << 20, largestFolder = 4096;

/// Numbers of a piece of the file; what lies beyond its end reads as nothing.
class Piece {
 public:
  explicit Piece(std::string bytes) : bytes_(std::move(bytes)) {}
  std::optional<std::uint32_t> number(std::size_t at, std::size_t count) const {
    if (at > bytes_.size() || count > bytes_.size() - at) return {};
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
      value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes_[at + i])) << (8 * i);
    return value;
  }
  std::uint32_t u16(std::size_t at) const { return number(at, 2).value_or(0); }
  std::uint32_t u32(std::size_t at) const { return number(at, 4).value_or(0); }
  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

struct Section {
  std::uint32_t virtualAddress = 0, rawSize = 0, rawOffset = 0;
};

struct Image {
  std::vector<Section> sections;
  std::uint32_t resources = 0;  ///< virtual address of the resource folders
};

std::optional<std::uint64_t> fileOffset(const Image& image, std::uint32_t address) {
  for (const Section& section : image.sections)
    if (address >= section.virtualAddress && address - section.virtualAddress < section.rawSize)
      return std::uint64_t{section.rawOffset} + (address - section.virtualAddress);
  return {};
}

/// Virtual address of the resource folders, from the optional header; 0 without.
std::uint32_t resourceAddress(const Piece& optionalHeader) {
  const std::uint32_t magic = optionalHeader.u16(0);
  if (magic != 0x10B && magic != 0x20B) return 0;
  const std::size_t counts = magic == 0x10B ? 92 : 108;
  const std::uint32_t folders = optionalHeader.u32(counts);
  return folders > 2 ? optionalHeader.u32(counts + 4 + 2 * 8) : 0;
}

std::optional<Image> readImage(const ByteReader& read) {
  const Piece start(read(0, 64));
  if (start.u16(0) != 0x5A4D)  // "MZ"
    return {};
  const std::uint64_t header = start.u32(0x3C);
  const Piece coff(read(header, 24));
  if (coff.u32(0) != 0x4550)  // "PE", two NULs
    return {};
  const std::uint32_t optionalSize = coff.u16(20);
  Image image;
  image.resources = resourceAddress(Piece(read(header + 24, std::min<std::size_t>(optionalSize, 256))));
  if (image.resources == 0) return {};
  constexpr std::size_t sectionBytes = 40, mostSections = 96;  // the loader's own limit
  const std::size_t count = std::min<std::size_t>(coff.u16(6), mostSections);
  const Piece table(read(header + 24 + optionalSize, count * sectionBytes));
  for (std::size_t at = 0; at < count * sectionBytes; at += sectionBytes)
    image.sections.push_back({table.u32(at + 12), table.u32(at + 16), table.u32(at + 20)});
  return image;
}

/// Which entry of a resource folder is meant.
struct Choice {
  std::optional<std::uint32_t> number;  ///< the entry of that number
  std::uint32_t position = 0;           ///< without a number: the entry at that place
};

/// Where an entry of a resource folder leads.
std::optional<std::uint32_t> folderEntry(const Piece& folder, const Choice& choice) {
  const std::uint32_t count = folder.u16(12) + folder.u16(14);
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::size_t at = 16 + i * std::size_t{8};
    const auto identifier = folder.number(at, 4), target = folder.number(at + 4, 4);
    if (!target) return {};
    if (choice.number ? identifier == choice.number : i == choice.position) return target;
  }
  return {};
}

/// Type, name, language: three levels of folders, and then the place and size of the bytes.
std::string resource(const Image& image, const ByteReader& read, std::uint32_t type, const Choice& name,
                     std::size_t largest) {
  const auto base = fileOffset(image, image.resources);
  if (!base) return {};
  const Choice levels[] = {{type, 0}, name, {}};
  std::uint32_t at = 0;
  for (int level = 0; level < 3; ++level) {
    const Piece folder(read(*base + at, largestFolder));
    const auto entry = folderEntry(folder, levels[level]);
    if (!entry || ((*entry & subFolderBit) != 0) != (level < 2)) return {};
    at = *entry & ~subFolderBit;
  }
  const Piece data(read(*base + at, 16));
  const auto offset = fileOffset(image, data.u32(0));
  return offset ? read(*offset, std::min<std::size_t>(data.u32(4), largest)) : std::string();
}

void appendNumber(std::string& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i)
    bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}

}  // namespace

std::string versionOfProgram(const ByteReader& read) {
  const auto image = readImage(read);
  if (!image) return {};
  const Piece resource(posix::resource(*image, read, versionType, {}, largestResource));
  // length, value length, type, the key "VS_VERSION_INFO" in UTF-16, and the fixed part on a multiple of four
  constexpr std::size_t fixedPart = 40;
  if (resource.u16(2) < 16 || resource.u32(fixedPart) != fixedSignature || !resource.number(fixedPart + 12, 4))
    return {};
  const std::uint32_t high = resource.u32(fixedPart + 8), low = resource.u32(fixedPart + 12);
  return std::to_string(high >> 16) + '.' + std::to_string(high & 0xFFFF) + '.' + std::to_string(low >> 16) + '.' +
         std::to_string(low & 0xFFFF);
}

std::string iconOfProgram(const ByteReader& read, std::uint32_t index) {
  const auto image = readImage(read);
  if (!image) return {};
  const Piece group(resource(*image, read, iconGroupType, {{}, index}, largestResource));
  constexpr std::uint32_t mostSizes = 64;
  constexpr std::size_t header = 6, groupEntry = 14, fileEntry = 16;
  std::vector<std::pair<std::size_t, std::string>> pictures;  // place of the entry in the group, bytes
  for (std::size_t i = 0; i < std::min(group.u16(4), mostSizes); ++i) {
    const std::size_t at = header + i * groupEntry;
    std::string bytes = resource(*image, read, iconType, {group.u16(at + 12), 0}, largestIcon);
    if (!bytes.empty()) pictures.emplace_back(at, std::move(bytes));
  }
  if (pictures.empty()) return {};

  std::string icon;
  appendNumber(icon, 0x10000, 4);  // reserved, and type 1: icon
  appendNumber(icon, static_cast<std::uint32_t>(pictures.size()), 2);
  std::size_t offset = header + pictures.size() * fileEntry;
  for (const auto& [at, bytes] : pictures) {
    icon += group.bytes().substr(at, 8);  // width, height, colours, reserved, planes, bits
    appendNumber(icon, static_cast<std::uint32_t>(bytes.size()), 4);
    appendNumber(icon, static_cast<std::uint32_t>(offset), 4);
    offset += bytes.size();
  }
  for (const auto& [at, bytes] : pictures)
    icon += bytes;
  return icon;
}

}  // namespace varnholt::platform::posix
