#include "core/attribute_words.hpp"

namespace varnholt::core {
namespace {

struct Row {
  platform::Attributes value;
  std::string_view statusBar, properties;
};

/// 5 and 37 have no words and 6 has those of 2: users know them so.
constexpr Row rows[] = {
    {0, "No Attributes", "No Attributes !"},
    {1, "Readonly", "Readonly"},
    {2, "Hidden", "Hidden"},
    {3, "Readonly and Hidden", "Readonly and Hidden"},
    {4, "System", "System"},
    {6, "Hidden", "Hidden"},
    {7, "Readonly,Hidden,System", "Readonly,Hidden,System"},
    {16, "Folder  [Normal]", "Folder(16), Normal"},
    {17, "Folder  [Index service]", "Folder(17), with Index service"},
    {22, "Folder  [Fast Search,Index service]", "Folder(22), Fast Search,Index service"},
    {23, "Folder  [Special]", ""},
    {32, "Archive", "Archive"},
    {33, "Archive and Readonly", "Archive and Readonly"},
    {34, "Archive and Hidden", "Archive and Hidden"},
    {35, "Archive,Readonly,Hidden", "Archive,Readonly,Hidden"},
    {36, "Archive and System", "Archive and System"},
    {38, "Archive,Hidden,System", "Archive,Hidden and System"},
    {39, "Archive,Readonly,Hidden,System", "Archive,Readonly,Hidden,System"},
    {48, "Folder  [ReadOnly]", "Folder(48), Read-Only"},
    {49, "Folder  [Arc.Ready,Index service]", ""},
    {53, "Folder  [Fast Search,Index service]", "Folder(53), Fast Search,Allow Index service"},
    {54, "Folder  [Arc.Ready,Index service]", "Folder(54), with Index service"},
    {55, "Folder  [ReadOnly]", "Folder(55), Read-Only"},
    {128, "Compressed File", "Compressed File"},
    {2048, "Compressed File and Index service !", "Compressed File and Index service !"},
    {2080, "NorMal,- with Advanced Attributes", "NorMal,- with Advanced Attributes"},
    {2081, "Compressed File", "Compressed File"},
    {2082, "Compressed,ArchiveReady,Index service", "Compressed,ArchiveReady,Index service"},
    {2083, "Ro,Hid,Comp,Arc.Ready,Index service", "Ro,Hid,Comp,Arc.Ready,Index service"},
};

const Row* find(platform::Attributes value) {
  for (const Row& row : rows)
    if (row.value == value) return &row;
  return nullptr;
}

const Row& wordsOf(platform::Attributes value) {
  static constexpr Row other{0, "Cannot Identify Attributes !", "Cannot Identify Attributes !"};
  constexpr platform::Attributes lastPlainValue = 128;
  const Row* row = find(value);
  // Values between the two wrap round to numbers that no row has.
  if (!row && value > lastPlainValue) row = find(value - platform::attribute::Compressed);
  return row ? *row : other;
}

}  // namespace

std::string_view fileatrib(platform::Attributes value) { return wordsOf(value).statusBar; }

std::string_view propertiesAttributes(platform::Attributes value) { return wordsOf(value).properties; }

}  // namespace varnholt::core
