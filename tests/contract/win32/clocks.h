// What Windows knows of time passed and of time spent, in milliseconds.
#pragma once

#include <windows.h>

namespace deck {

// Since some fixed time, finer than a microsecond.
inline double Milliseconds() {
  LARGE_INTEGER now{};
  LARGE_INTEGER frequency{};
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&frequency);
  return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// What this thread has had of the processor; it grows in steps of ten and more. On a virtual
// machine what its host took away meanwhile may count as well.
inline double ProcessorMilliseconds() {
  FILETIME created{};
  FILETIME exited{};
  FILETIME kernel{};
  FILETIME user{};
  GetThreadTimes(GetCurrentThread(), &created, &exited, &kernel, &user);
  const auto hundredNanoseconds = [](FILETIME time) {
    return static_cast<double>(ULARGE_INTEGER{{time.dwLowDateTime, time.dwHighDateTime}}.QuadPart);
  };
  return (hundredNanoseconds(kernel) + hundredNanoseconds(user)) / 10'000;
}

}  // namespace deck
