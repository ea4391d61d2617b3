#include "tests/contract/info_window/info_window_world.h"
#include "tests/fakes/fake_info_window_view.h"

namespace deck {
namespace {

class FakeInfoWindowWorld : public InfoWindowWorld {
 public:
  InfoWindowView& View() override { return view_; }

  void MoveTo(const InfoWindowPlace& place) override { view_.loaded = place; }
  void Type(char16_t) override {}  // the stand-in has no keyboard

  bool IsVisible() const override { return view_.visible; }
  bool IsMinimised() const override { return view_.minimised; }
  std::u16string Text() const override {
    // The cases' pages are a single group with one blank in front of its text.
    const std::size_t start = view_.page.find(' ') + 1;
    if (start == 0) return {};
    return {view_.page.begin() + static_cast<std::ptrdiff_t>(start), view_.page.end() - 1};
  }

 private:
  FakeInfoWindowView view_;
};

}  // namespace

std::unique_ptr<InfoWindowWorld> MakeInfoWindowWorld() {
  return std::make_unique<FakeInfoWindowWorld>();
}

}  // namespace deck
