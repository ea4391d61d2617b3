#include <gtest/gtest.h>

#include "tests/contract/win32/reporting_program.h"
#include "tests/contract/win32/writing_program.h"

int main(int count, char** arguments) {
  if (deck::ReportIfAsked()) return 0;
  deck::WriteForEverIfAsked();
  testing::InitGoogleTest(&count, arguments);
  return RUN_ALL_TESTS();
}
