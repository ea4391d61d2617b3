// The manifest decides what the system tells this program about itself.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace deck {
namespace {

class Manifest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_FALSE(text_.empty()); }
  bool Holds(const std::string& words) const { return text_.find(words) != std::string::npos; }

 private:
  static std::string Content() {
    std::ifstream file(WRENDECK_MANIFEST);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  const std::string text_ = Content();
};

TEST_F(Manifest, LeavesWindows10OutSoThatTheSystemReportsVersionSix) {
  EXPECT_TRUE(Holds("{1f676c76-80e1-4239-95bb-83d0f6d0da78}")) << "Windows 8.1, version 6.3";
  EXPECT_FALSE(Holds("8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a")) << "Windows 10 and 11";
}

TEST_F(Manifest, AsksForResolutionsMonitorByMonitorAllTheSame) {
  EXPECT_TRUE(Holds(">true/pm</dpiAware>"));
  EXPECT_TRUE(Holds(">PerMonitorV2, PerMonitor</dpiAwareness>"));
}

}  // namespace
}  // namespace deck
