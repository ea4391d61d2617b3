#include "tests/contract/win32/temporary_folder.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "platform/strings.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

TEST(TemporaryFolderTest, TakesAnotherNumberWhereAFolderWasLeft) {
  const TemporaryFolder first;
  const std::u16string& path = first.Path();
  const std::size_t number = path.rfind(u'-') + 1;
  const std::filesystem::path left(
      Wide(path.substr(0, number) + Decimal(std::stoi(std::wstring(Wide(path) + number)) + 1)));
  std::filesystem::create_directory(left);  // unless a run that was ended has left that one, too
  ASSERT_TRUE(std::filesystem::is_directory(left));
  {
    const TemporaryFolder second;
    EXPECT_NE(second.Path(), FromWide(left.wstring()));
    EXPECT_TRUE(std::filesystem::is_directory(std::filesystem::path(Wide(second.Path()))));
  }
  std::filesystem::remove_all(left);
}

}  // namespace
}  // namespace deck
