#include "find/move_aside.h"

#include <gtest/gtest.h>

#include <random>

namespace deck {
namespace {

constexpr Rectangle kScreen{0, 0, 1000, 800};

TEST(MoveAside, LeavesAWindowAloneThatHidesNothing) {
  const Rectangle window{900, 700, 300, 200};  // partly outside, where the user has put it
  EXPECT_EQ(MoveAside(window, {100, 100, 50, 20}, kScreen), window);
  EXPECT_EQ(MoveAside(window, {850, 680, 50, 20}, kScreen), window) << "side by side";
}

TEST(MoveAside, GoesTheNearestWayThatIsFree) {
  const Rectangle window{400, 300, 200, 100};
  EXPECT_EQ(MoveAside(window, {450, 310, 50, 20}, kScreen), (Rectangle{400, 330, 200, 100}));
  EXPECT_EQ(MoveAside(window, {450, 370, 50, 20}, kScreen), (Rectangle{400, 270, 200, 100}));
  EXPECT_EQ(MoveAside(window, {390, 0, 20, 800}, kScreen), (Rectangle{410, 300, 200, 100}));
  EXPECT_EQ(MoveAside(window, {590, 0, 20, 800}, kScreen), (Rectangle{390, 300, 200, 100}));
}

TEST(MoveAside, StaysInsideTheWorkArea) {
  const Rectangle window{400, 690, 200, 100};
  EXPECT_EQ(MoveAside(window, {450, 700, 50, 20}, kScreen), (Rectangle{400, 600, 200, 100}));
}

TEST(MoveAside, ComesBackFromOutsideWhenThatIsEnough) {
  EXPECT_EQ(MoveAside({900, 300, 200, 100}, {1000, 310, 90, 20}, kScreen),
            (Rectangle{800, 300, 200, 100}));
}

TEST(MoveAside, HidesAsLittleAsItCan) {
  const Rectangle window{400, 300, 200, 100};
  EXPECT_EQ(MoveAside(window, {0, 0, 1000, 750}, kScreen), (Rectangle{800, 700, 200, 100}));
  EXPECT_EQ(MoveAside(window, {0, 50, 1000, 750}, kScreen), (Rectangle{800, 0, 200, 100}));
}

TEST(MoveAside, WorksOnAnyMonitor) {
  EXPECT_EQ(MoveAside({-800, -300, 200, 100}, {-750, -290, 50, 20}, {-1000, -800, 1000, 800}),
            (Rectangle{-800, -270, 200, 100}));
}

TEST(MoveAside, NeverHidesWhatFitsBesideItAndKeepsItsSize) {
  std::mt19937 random(98);
  const auto number = [&random](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  for (int round = 0; round < 5'000; ++round) {
    const Rectangle window{number(1200) - 100, number(1000) - 100, 1 + number(400),
                           1 + number(300)};
    const Rectangle match{number(900), number(780), 1 + number(100), 1 + number(20)};
    const Rectangle moved = MoveAside(window, match, kScreen);
    ASSERT_FALSE(Overlap(moved, match)) << "round " << round;
    ASSERT_EQ(moved.width, window.width);
    ASSERT_EQ(moved.height, window.height);
  }
}

TEST(MovedInto, MovesNoFartherThanNeeded) {
  EXPECT_EQ(MovedInto({10, 20, 100, 100}, kScreen), (Rectangle{10, 20, 100, 100}));
  EXPECT_EQ(MovedInto({-10, 750, 100, 100}, kScreen), (Rectangle{0, 700, 100, 100}));
  EXPECT_EQ(MovedInto({950, -5, 100, 100}, kScreen), (Rectangle{900, 0, 100, 100}));
  EXPECT_EQ(MovedInto({50, 50, 2000, 2000}, kScreen), (Rectangle{0, 0, 2000, 2000}));
}

}  // namespace
}  // namespace deck
