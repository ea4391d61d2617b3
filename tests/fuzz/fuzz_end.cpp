#include "tests/fuzz/fuzz_input.h"

// The fuzzer keeps the input of a program that crashes.
void deck::RuleBroken() {
  __builtin_trap();
}
