// HOTASCompiler.exe: compiles the file that the editor names and answers in section "Compiler" of
// HOTAS.ini, Status last, because the editor takes a status as the sign that all is written. No
// window. README.md lists the control keys with which a test makes it misbehave.

#include <windows.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <optional>
#include <string>
#include <utility>

#include "standins/cougar_compiler.h"
#include "standins/switches.h"
#include "standins/win32/surroundings.h"

namespace deck {
namespace {

constexpr int kCompiled = 0;
constexpr int kRefused = 1;
constexpr int kIniNotWritable = 2;
constexpr int kDiedAtOnce = 3;
constexpr int kHalfWrittenMilliseconds = 300;
constexpr std::size_t kHugeLength = 100000;
// The speed of the serial line that a download is reckoned with.
constexpr double kBytesPerSecond = 1200.0;

using Clock = std::chrono::steady_clock;

// Nine characters are all that the editor keeps of a time.
std::string Seconds(double seconds) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f s", seconds);
  return text;
}

std::wstring DirectoryOf(const std::wstring& path) {
  return path.substr(0, path.find_last_of(L"\\/:") + 1);
}

std::string ExtensionOf(const std::wstring& path) {
  const std::wstring name = path.substr(DirectoryOf(path).size());
  const std::size_t dot = name.rfind(L'.');
  return dot == std::wstring::npos ? "" : ToCodePage(name.substr(dot + 1));
}

CougarOutcome Compile(const std::wstring& file) {
  const std::optional<std::string> text = ReadWholeFile(file);
  if (!text) return UnreadableCougarFile(ToCodePage(file));
  return CompileCougarText(*text, ExtensionOf(file), [&file](const std::string& name) {
    return ReadWholeFile(DirectoryOf(file) + FromCodePage(name));
  });
}

CougarOutcome UnknownSwitches() {
  CougarOutcome outcome;
  outcome.errorCode = "Error 2010: unknown switches";
  return outcome;
}

// The values of section "Compiler" as they will be written.
struct Answer {
  std::string fileName;
  std::string status;
  std::string lineNumber;
  std::string memory;
  std::string errorCode;
  std::string compileTime;
  std::string downloadTime;
};

std::array<std::pair<const char*, std::string>, 7> InWritingOrder(const Answer& answer) {
  return {{{"FileName", answer.fileName},
           {"LineNumber", answer.lineNumber},
           {"Memory", answer.memory},
           {"ErrorCode", answer.errorCode},
           {"CompileTime", answer.compileTime},
           {"DownloadTime", answer.downloadTime},
           {"Status", answer.status}}};
}

Answer AnswerFor(const CougarOutcome& outcome, const std::optional<CompilerOrder>& order,
                 Clock::duration duration) {
  const bool ok = outcome.errorCode.empty();
  Answer answer;
  if (order) answer.fileName = ToCodePage(order->file);
  answer.status = ok ? "OK" : "ERROR";
  answer.lineNumber = std::to_string(outcome.lineNumber);
  answer.memory = std::to_string(outcome.memory);
  answer.errorCode = outcome.errorCode;
  answer.compileTime = Seconds(std::chrono::duration<double>(duration).count());
  if (ok && order && order->action != CompilerAction::kCompile) {
    answer.downloadTime = Seconds(static_cast<double>(outcome.statementBytes) / kBytesPerSecond);
  }
  return answer;
}

void Misreport(Answer& answer, const ControlFile& control) {
  if (const auto status = control.Text("Status")) answer.status = *status;
  if (const auto lineNumber = control.Text("LineNumber")) answer.lineNumber = *lineNumber;
  if (const auto errorCode = control.Text("ErrorCode")) answer.errorCode = *errorCode;
  if (const auto memory = control.Text("Memory")) answer.memory = *memory;
  if (control.IsSet("HugeValues")) {
    if (answer.errorCode.empty()) answer.errorCode = "Error 2999: ";
    answer.errorCode.resize(kHugeLength, 'x');
    answer.compileTime.resize(kHugeLength, '0');
  }
}

// Leaves HOTAS.ini for a while as an interrupted write would; false when it is to stay like that.
bool CompleteAfterHalfWriting(const Answer& answer, const ControlFile& control) {
  const std::optional<std::string> before = ReadWholeFile(HotasIni::Path());
  const int milliseconds = control.Number("HalfWrittenFor", kHalfWrittenMilliseconds);
  const bool written =
      WriteWholeFile(HotasIni::Path(), "[Compiler]\r\nFileName=" + answer.fileName + "\r\nStat");
  if (milliseconds < 0) return false;
  Sleep(static_cast<DWORD>(milliseconds));
  return !written || WriteWholeFile(HotasIni::Path(), before.value_or(""));
}

bool WriteAnswer(const Answer& answer) {
  HotasIni compiler("Compiler");
  for (const auto& [key, value] : InWritingOrder(answer)) compiler.Write(key, value);
  return compiler.AllWritten();
}

// The profile functions cannot hold a value of more than 32,766 characters (the key is removed
// instead), so an answer with huge values goes into the file as plain text.
bool WriteHugeAnswer(const Answer& answer) {
  HotasIni("Compiler").RemoveSection();
  std::string text = "[Compiler]\r\n";
  for (const auto& [key, value] : InWritingOrder(answer)) {
    text.append(key).append("=").append(value).append("\r\n");
  }
  return WriteWholeFile(HotasIni::Path(), text + ReadWholeFile(HotasIni::Path()).value_or(""));
}

bool EnableButtons() {
  HotasIni mode("TMMODE");
  mode.Write("Buttons", "1");
  return mode.AllWritten();
}

int Run(const ControlFile& control) {
  if (control.IsSet("DieAtOnce")) return kDiedAtOnce;
  const Clock::time_point start = Clock::now();
  const std::optional<CompilerOrder> order = ParseCompilerLine(GetCommandLineW());
  const CougarOutcome outcome = order ? Compile(order->file) : UnknownSwitches();
  const bool ok = outcome.errorCode.empty();
  Answer answer = AnswerFor(outcome, order, Clock::now() - start);
  Misreport(answer, control);

  Sleep(static_cast<DWORD>(control.Number("Delay", 0)));
  const int exitCode = ok ? kCompiled : kRefused;
  if (control.IsSet("NeverAnswer")) return exitCode;
  if (control.IsSet("HalfWritten") && !CompleteAfterHalfWriting(answer, control)) return exitCode;
  const bool enables = ok && order->action == CompilerAction::kDownloadAndEnable;
  const bool enabled = !enables || EnableButtons();
  const bool answered = control.IsSet("HugeValues") ? WriteHugeAnswer(answer) : WriteAnswer(answer);
  return answered && enabled ? exitCode : kIniNotWritable;
}

}  // namespace
}  // namespace deck

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  const deck::ControlFile control;
  deck::RecordRun(control);
  return deck::Run(control);
}
