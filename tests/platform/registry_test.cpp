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

TEST_F(RegistryTest, FindsKeysInAnyCaseAndWithOuterBackslashes) {
  ASSERT_TRUE(registry.createKey(Root::LocalMachine, "SYSTEM\\Services\\Tcpip\\Parameters"));
  for (const char* path : {"SYSTEM\\Services\\Tcpip\\Parameters", "system\\services\\TCPIP\\parameters",
                           "\\SYSTEM\\Services\\Tcpip\\Parameters\\", "SYSTEM", "SYSTEM\\Services", ""})
    EXPECT_TRUE(registry.keyExists(Root::LocalMachine, path)) << path;
  for (const char* path : {"SYSTEM\\Services\\Tcp", "Services", "SYSTEM\\Services\\Tcpip\\Parameters\\Deeper"})
    EXPECT_FALSE(registry.keyExists(Root::LocalMachine, path)) << path;
  EXPECT_FALSE(registry.keyExists(Root::CurrentUser, "SYSTEM"));
}

}  // namespace
}  // namespace varnholt::platform::posix
