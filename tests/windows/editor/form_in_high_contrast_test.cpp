// The item class form in high contrast, on its pixels: labels, fields, list and pictures stand out.
#include <gtest/gtest.h>

#include "tests/windows/base/high_contrast.h"
#include "tests/windows/editor/form_world.h"

namespace pricedown::testing {
namespace {

class FormInHighContrast : public FormWorld, public ::testing::WithParamInterface<bool> {
 protected:
  // Of the child's client area.
  double Share(int id, double contrast) const {
    const Picture picture = CapturePicture(Child(id));
    return ShareThatStandsOut(picture, {1, 1, picture.width - 1, picture.height - 1}, contrast);
  }

  const HighContrast colours_{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Schemes, FormInHighContrast, ::testing::Bool(),
                         [](const auto& tested) { return tested.param ? "Dark" : "Light"; });

TEST_P(FormInHighContrast, LabelsFieldsListAndPicturesStandOut) {
  ShowForEdit(u"A1", {[&] { HighContrast::Apply(Form()); },
                      [&] {
                        KeepPicture(Form(), GetParam() ? "form in dark" : "form in light");
                        for (int i = 0; i < 5; ++i) {
                          EXPECT_GT(Share(form_ids::kLabel1 + i, 4.5), 0.02) << i;
                          EXPECT_GT(Share(form_ids::kClassNumber + i, 4.5), 0.003) << i;
                        }
                        EXPECT_GT(Share(form_ids::kMembers, 4.5), 0.002);
                        EXPECT_GT(Share(form_ids::kToolStrip, 3), 0.02);
                        EXPECT_GT(Share(form_ids::kLossLookup, 3), 0.03);
                        EXPECT_GT(Share(form_ids::kReserveLookup, 3), 0.03);
                      },
                      [&] { CloseByFrame(); }});
}

}  // namespace
}  // namespace pricedown::testing
