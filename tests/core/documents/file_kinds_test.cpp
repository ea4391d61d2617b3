#include "documents/file_kinds.h"

#include <gtest/gtest.h>

namespace deck {
namespace {

struct KindCase {
  std::u16string_view name;
  bool macro;
  bool joystick;
  bool compilable;
};

class FileKinds : public testing::TestWithParam<KindCase> {};

TEST_P(FileKinds, AreTheLastThreeCharactersInAnyCase) {
  const KindCase& c = GetParam();
  EXPECT_EQ(IsMacroFile(c.name), c.macro);
  EXPECT_EQ(IsJoystickFile(c.name), c.joystick);
  EXPECT_EQ(IsCompilable(c.name), c.compilable);
}

INSTANTIATE_TEST_SUITE_P(
    Names, FileKinds,
    testing::Values(KindCase{u"a.tmj", false, true, true}, KindCase{u"A.TMJ", false, true, true},
                    KindCase{u"mytmj", false, true, true},
                    KindCase{u"C:\\x\\a.f22", false, true, false},
                    KindCase{u"a.b50", false, true, false}, KindCase{u"a.tmm", true, false, false},
                    KindCase{u"a.M22", true, false, false}, KindCase{u"a.m50", true, false, false},
                    KindCase{u"a.txt", false, false, false},
                    KindCase{u"a.tmj.bak", false, false, false},
                    KindCase{u"mj", false, false, false}, KindCase{u"", false, false, false},
                    KindCase{u"Untitled", false, false, false}));

}  // namespace
}  // namespace deck
