#include "help/quick_help.h"

#include <array>
#include <string_view>

#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kSection = u"Online Help";
constexpr std::array<std::u16string_view, 3> kPages = {u"Syntax.rtf", u"Slash modifiers.rtf",
                                                       u"Error codes.rtf"};

}  // namespace

QuickHelp::QuickHelp(StatusBar& status, const Settings& settings, Ports ports)
    : status_(status), settings_(settings), ports_(ports) {}

void QuickHelp::ShowInfoPage(int index, std::pair<float, float> screen) {
  if (infoWindowOpen_ == 0) {
    ports_.view.Load(PositionInfoWindow(screen));
    infoWindowOpen_ = 1;
  }
  ports_.view.Show();
  if (index < 0 || index >= static_cast<int>(kPages.size())) return;
  const std::u16string_view name = kPages[static_cast<std::size_t>(index)];
  const Result<std::string> page =
      ports_.files.Read(settings_.applicationFolder + u"\\Info\\" + std::u16string(name));
  if (page) ports_.view.ShowPage(*page);
}

void QuickHelp::Close() {
  if (infoWindowOpen_ == 0) return;
  SaveInfoWindowPosition();
  infoWindowOpen_ = 0;
  ports_.view.Unload();
}

void QuickHelp::Minimise() {
  if (infoWindowOpen_ == 1) ports_.view.Minimise();
}

void QuickHelp::OnHoverOk() {
  status_.Say(u"Press the OK button when you're done.");
}

void QuickHelp::OnHoverText() {
  status_.Say(u"Some online help for you to peruse!");
}

InfoWindowPlace QuickHelp::PositionInfoWindow(std::pair<float, float> screen) const {
  const auto read = [this](std::u16string_view key, int fallback) {
    return ports_.profiles.ReadInteger(settings_.SettingsPath, kSection, key, fallback);
  };
  const auto [screenWidth, screenHeight] = screen;
  return {
      .top = read(u"InfoWindowTop", (static_cast<int>(screenHeight) - kInfoWindowHeight) / 2),
      .left = read(u"InfoWindowLeft", (static_cast<int>(screenWidth) - kInfoWindowWidth) / 2),
      .height = read(u"InfoWindowHeight", kInfoWindowHeight),
      .width = read(u"InfoWindowWidth", kInfoWindowWidth),
  };
}

void QuickHelp::SaveInfoWindowPosition() {
  const InfoWindowPlace place = ports_.view.Place();
  // Where the settings cannot be written the window opens in its old place again.
  static_cast<void>(ports_.profiles.WriteTexts(settings_.SettingsPath, kSection,
                                               {{u"InfoWindowTop", Decimal(place.top)},
                                                {u"InfoWindowLeft", Decimal(place.left)},
                                                {u"InfoWindowHeight", Decimal(place.height)},
                                                {u"InfoWindowWidth", Decimal(place.width)}}));
}

}  // namespace deck
