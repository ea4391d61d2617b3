// The suite of edit boxes on the system's control.
#include "tests/contract/edit_box/real_edit_box_driver.h"
#include "tests/contract/edit_box_contract.h"

namespace deck {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Real, EditBoxContract, RealEditBoxDriver);

}  // namespace
}  // namespace deck
