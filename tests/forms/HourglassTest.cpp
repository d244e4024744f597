#include "forms/Hourglass.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace {
Qt::CursorShape Shape() {
    const QCursor *cursor = QGuiApplication::overrideCursor();
    return cursor ? cursor->shape() : Qt::ArrowCursor;
}
} // namespace

TEST(THourglass, ShowsTheWaitCursorWhileItLives) {
    {
        const THourglass outer;
        EXPECT_EQ(Shape(), Qt::WaitCursor);
        {
            const THourglass inner;
            EXPECT_EQ(Shape(), Qt::WaitCursor);
        }
        EXPECT_EQ(Shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(THourglass, EndsWithAnException) {
    const auto scan = [] {
        const THourglass hourglass;
        throw std::runtime_error("scan failed");
    };
    EXPECT_THROW(scan(), std::runtime_error);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}
