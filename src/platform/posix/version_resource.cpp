#include "platform/posix/version_resource.hpp"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace varnholt::platform::posix {
namespace {

constexpr std::uint32_t versionType = 16;             // RT_VERSION
constexpr std::uint32_t fixedSignature = 0xFEEF04BD;  // VS_FIXEDFILEINFO
constexpr std::uint32_t subFolderBit = 0x80000000;
constexpr std::size_t largestResource = 65536, largestFolder = 4096;

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

/// Where an entry of a resource folder leads: that with the number, or the first of any.
std::optional<std::uint32_t> folderEntry(const Piece& folder, std::optional<std::uint32_t> wanted) {
  const std::size_t count = folder.u16(12) + folder.u16(14);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t at = 16 + i * 8;
    const auto identifier = folder.number(at, 4), target = folder.number(at + 4, 4);
    if (!target) return {};
    if (!wanted || identifier == wanted) return target;
  }
  return {};
}

/// Type, name, language: three levels of folders, and then the place and size of the bytes.
std::string versionResource(const Image& image, const ByteReader& read) {
  const auto base = fileOffset(image, image.resources);
  if (!base) return {};
  std::uint32_t at = 0;
  for (int level = 0; level < 3; ++level) {
    const Piece folder(read(*base + at, largestFolder));
    const auto entry = folderEntry(folder, level == 0 ? std::optional(versionType) : std::nullopt);
    if (!entry || ((*entry & subFolderBit) != 0) != (level < 2)) return {};
    at = *entry & ~subFolderBit;
  }
  const Piece data(read(*base + at, 16));
  const auto offset = fileOffset(image, data.u32(0));
  return offset ? read(*offset, std::min<std::size_t>(data.u32(4), largestResource)) : std::string();
}

}  // namespace

std::string versionOfProgram(const ByteReader& read) {
  const auto image = readImage(read);
  if (!image) return {};
  const Piece resource(versionResource(*image, read));
  // length, value length, type, the key "VS_VERSION_INFO" in UTF-16, and the fixed part on a multiple of four
  constexpr std::size_t fixedPart = 40;
  if (resource.u16(2) < 16 || resource.u32(fixedPart) != fixedSignature || !resource.number(fixedPart + 12, 4))
    return {};
  const std::uint32_t high = resource.u32(fixedPart + 8), low = resource.u32(fixedPart + 12);
  return std::to_string(high >> 16) + '.' + std::to_string(high & 0xFFFF) + '.' + std::to_string(low >> 16) + '.' +
         std::to_string(low & 0xFFFF);
}

}  // namespace varnholt::platform::posix
