#include "platform/posix/registry.hpp"

#include "support/scratch_folder.hpp"

namespace varnholt::platform::posix {
namespace {

using Root = RegistryRoot;

class RegistryTest : public testing::Test {
 protected:
  test::ScratchFolder folder;
  SqliteRegistry registry{folder / "registry.db"};
};

TEST_F(RegistryTest, KeepsEachTypeOfValueFromOneStartToTheNext) {
  const RegistryValue text = std::string("C:\\Users\0x", 10), bytes = std::vector<std::uint8_t>{0, 255, 7},
                      number = std::uint32_t{0xFFFFFFFF}, nothing = std::string(),
                      noBytes = std::vector<std::uint8_t>{};
  ASSERT_TRUE(registry.createKey(Root::CurrentUser, "Software\\Test"));
  const std::pair<const char*, const RegistryValue*> values[] = {
      {"Text", &text}, {"Bytes", &bytes}, {"Number", &number}, {"Nothing", &nothing}, {"", &noBytes}};
  for (const auto& [name, value] : values)
    ASSERT_TRUE(registry.set(Root::CurrentUser, "Software\\Test", name, *value)) << name;
  SqliteRegistry again(folder / "registry.db");
  for (const auto& [name, value] : values) {
    const auto read = again.get(Root::CurrentUser, "Software\\Test", name);
    ASSERT_TRUE(read) << name;
    EXPECT_EQ(*read, *value) << name;
  }
}

TEST_F(RegistryTest, FindsKeysInAnyCaseAndWithOuterBackslashes) {
  ASSERT_TRUE(registry.createKey(Root::LocalMachine, "SYSTEM\\Services\\Tcpip\\Parameters"));
  for (const char* path : {"SYSTEM\\Services\\Tcpip\\Parameters", "system\\services\\TCPIP\\parameters",
                           "\\SYSTEM\\Services\\Tcpip\\Parameters\\", "SYSTEM", "SYSTEM\\Services", ""})
    EXPECT_TRUE(registry.keyExists(Root::LocalMachine, path)) << path;
  for (const char* path : {"SYSTEM\\Services\\Tcp", "Services", "SYSTEM\\Services\\Tcpip\\Parameters\\Deeper"})
    EXPECT_FALSE(registry.keyExists(Root::LocalMachine, path)) << path;
  EXPECT_FALSE(registry.keyExists(Root::CurrentUser, "SYSTEM"));
}

TEST_F(RegistryTest, DoesNotMakeAKeyToSetAValue) {
  EXPECT_EQ(registry.set(Root::CurrentUser, "Missing", "Name", std::string("x")).error().code, ErrorCode::NotFound);
  EXPECT_FALSE(registry.keyExists(Root::CurrentUser, "Missing"));
  EXPECT_EQ(registry.get(Root::CurrentUser, "Missing", "Name").error().code, ErrorCode::NotFound);
  ASSERT_TRUE(registry.createKey(Root::CurrentUser, "Missing"));
  EXPECT_EQ(registry.get(Root::CurrentUser, "Missing", "Name").error().code, ErrorCode::NotFound);
}

}  // namespace
}  // namespace varnholt::platform::posix
