#include "host/model/Units.h"

#include "tests/support/TarnTest.h"

#include <limits>

using tarn::Point3DDouble;
using tarn::Units;

class UnitsTest : public TarnTest {
protected:
  Units units;
};

TEST_F(UnitsTest, StartsWithMetresAndConvertsNothing) {
  EXPECT_STREQ(units.GetName().text(), "m");
  EXPECT_EQ(units.UnitsToMeters(1.25), 1.25);
  EXPECT_EQ(units.MetersToUnits(1.25), 1.25);
}

TEST_F(UnitsTest, KnowsTheUnitsOfLengthByName) {
  const std::pair<const char*, double> known[] = {{"mm", 0.001}, {"cm", 0.01},   {"m", 1.0},
                                                  {"km", 1000},  {"in", 0.0254}, {"ft", 0.3048},
                                                  {"yd", 0.9144}};
  for (const auto& [name, meters] : known) {
    ASSERT_TRUE(units.SetUnit(name)) << name;
    EXPECT_STREQ(units.GetName().text(), name);
    EXPECT_DOUBLE_EQ(units.UnitsToMeters(3.0), 3.0 * meters) << name;
    EXPECT_DOUBLE_EQ(units.MetersToUnits(3.0), 3.0 / meters) << name;
  }
}

TEST_F(UnitsTest, AnUnknownNameIsRefusedAndChangesNothing) {
  units.SetUnit("ft");
  for (const char* name : {"", "M", "parsec"}) {
    EXPECT_FALSE(units.SetUnit(name)) << name;
    EXPECT_STREQ(units.GetName().text(), "ft");
    EXPECT_DOUBLE_EQ(units.UnitsToMeters(1.0), 0.3048);
  }
}

TEST_F(UnitsTest, TakesAUnitOfAnyLength) {
  ASSERT_TRUE(units.SetUnit("ell", 0.6858));
  EXPECT_STREQ(units.GetName().text(), "ell");
  EXPECT_DOUBLE_EQ(units.UnitsToMeters(2.0), 1.3716);
}

TEST_F(UnitsTest, ALengthThatIsNoneIsRefusedAndChangesNothing) {
  using Limits = std::numeric_limits<double>;
  for (const double length : {0.0, -1.0, Limits::infinity(), Limits::quiet_NaN()}) {
    EXPECT_FALSE(units.SetUnit("ell", length)) << length;
    EXPECT_STREQ(units.GetName().text(), "m");
    EXPECT_EQ(units.UnitsToMeters(1.0), 1.0);
  }
}

TEST_F(UnitsTest, ConvertsAPointInPlace) {
  units.SetUnit("mm");
  Point3DDouble point{1.0, -2.0, 3.0};
  units.MetersToUnits(point);
  EXPECT_EQ(point, Point3DDouble(1000.0, -2000.0, 3000.0));
  units.UnitsToMeters(point);
  EXPECT_EQ(point, Point3DDouble(1.0, -2.0, 3.0));
}

TEST_F(UnitsTest, AHostsOwnConversionServesPointsToo) {
  struct Doubling : Units {
    using Units::MetersToUnits;
    double MetersToUnits(double length) const override { return 2.0 * length; }
  } doubling;
  Point3DDouble point{1.0, -2.0, 3.0};
  doubling.MetersToUnits(point);
  EXPECT_EQ(point, Point3DDouble(2.0, -4.0, 6.0));
}
