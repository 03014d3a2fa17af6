#include "host/model/MatrixDouble.h"

#include "host/model/VectorDouble.h"
#include "tests/support/TarnTest.h"

#include <limits>

using tarn::MatrixDouble;

class MatrixDoubleTest : public TarnTest {
protected:
  static MatrixDouble filled(int rows, int columns) {
    MatrixDouble matrix(rows, columns);
    int value = 0;
    for (int i = 1; i <= rows; ++i) {
      for (int j = 1; j <= columns; ++j) matrix(i, j) = ++value;
    }
    return matrix;
  }
};

TEST_F(MatrixDoubleTest, StartsWithZerosOfItsSize) {
  const MatrixDouble matrix(2, 3);
  EXPECT_EQ(matrix.rows(), 2);
  EXPECT_EQ(matrix.columns(), 3);
  for (int i = 1; i <= 2; ++i) {
    for (int j = 1; j <= 3; ++j) EXPECT_EQ(matrix(i, j), 0.0);
  }
}

TEST_F(MatrixDoubleTest, ANegativeSizeCountsAsZero) {
  const MatrixDouble matrix(-2, 3);
  EXPECT_EQ(matrix.rows(), 0);
  EXPECT_EQ(matrix.columns(), 3);
}

TEST_F(MatrixDoubleTest, CountsRowsAndColumnsFromOne) {
  const MatrixDouble matrix = filled(2, 3);
  EXPECT_EQ(matrix(1, 1), 1.0);
  EXPECT_EQ(matrix(1, 3), 3.0);
  EXPECT_EQ(matrix(2, 1), 4.0);
  EXPECT_EQ(matrix(2, 3), 6.0);
}

TEST_F(MatrixDoubleTest, TransposesRowsIntoColumns) {
  const MatrixDouble matrix = filled(2, 3).transposed();
  EXPECT_EQ(matrix.rows(), 3);
  EXPECT_EQ(matrix.columns(), 2);
  EXPECT_EQ(matrix(3, 1), 3.0);
  EXPECT_EQ(matrix(1, 2), 4.0);
}

TEST_F(MatrixDoubleTest, MultipliesRowsByColumns) {
  const MatrixDouble product = filled(2, 3) * filled(3, 2);
  ASSERT_EQ(product.rows(), 2);
  ASSERT_EQ(product.columns(), 2);
  EXPECT_EQ(product(1, 1), 22.0);
  EXPECT_EQ(product(1, 2), 28.0);
  EXPECT_EQ(product(2, 1), 49.0);
  EXPECT_EQ(product(2, 2), 64.0);
}

TEST_F(MatrixDoubleTest, AProductOfSizesThatDoNotFitIsEmpty) {
  const MatrixDouble product = filled(2, 3) * filled(2, 3);
  EXPECT_EQ(product.rows(), 0);
  EXPECT_EQ(product.columns(), 0);
}

TEST_F(MatrixDoubleTest, InvertsInPlace) {
  MatrixDouble matrix(3, 3);
  matrix(1, 1) = 2.0;
  matrix(1, 3) = 1.0;
  matrix(2, 2) = 4.0;
  matrix(3, 1) = -1.0;
  matrix(3, 3) = 3.0;
  const MatrixDouble original = matrix;
  ASSERT_TRUE(matrix.invert());
  EXPECT_NEAR(matrix(1, 1), 3.0 / 7.0, 1e-15);
  EXPECT_NEAR(matrix(1, 3), -1.0 / 7.0, 1e-15);
  EXPECT_NEAR(matrix(2, 2), 0.25, 1e-15);
  const MatrixDouble product = original * matrix;
  for (int i = 1; i <= 3; ++i) {
    for (int j = 1; j <= 3; ++j) EXPECT_NEAR(product(i, j), i == j ? 1.0 : 0.0, 1e-15);
  }
}

TEST_F(MatrixDoubleTest, InvertsMatricesOfAnyScale) {
  MatrixDouble tiny = MatrixDouble::Identity(3);
  for (int i = 1; i <= 3; ++i) tiny(i, i) = 1e-200;
  ASSERT_TRUE(tiny.invert());
  EXPECT_NEAR(tiny(2, 2) / 1e200, 1.0, 1e-15);
}

TEST_F(MatrixDoubleTest, WhatCannotBeInvertedIsLeftAsItWas) {
  MatrixDouble singular = filled(3, 3);
  MatrixDouble oblong = filled(2, 3);
  MatrixDouble empty;
  MatrixDouble notFinite = MatrixDouble::Identity(2);
  notFinite(1, 2) = std::numeric_limits<double>::infinity();
  MatrixDouble overflowing = MatrixDouble::Identity(2);
  overflowing(1, 1) = overflowing(2, 2) = 1e-310;
  for (MatrixDouble* matrix : {&singular, &oblong, &empty, &notFinite, &overflowing}) {
    const MatrixDouble before = *matrix;
    EXPECT_FALSE(matrix->invert());
    EXPECT_EQ(*matrix, before);
  }
}

TEST_F(MatrixDoubleTest, AVectorCountsFromOneAndStartsWithZeros) {
  tarn::VectorDouble vector(3);
  EXPECT_EQ(vector.size(), 3);
  EXPECT_EQ(vector(3), 0.0);
  vector(1) = 5.0;
  EXPECT_EQ(vector(1), 5.0);
}
