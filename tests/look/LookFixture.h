// Base of the tests of looks: a fresh model, the sample files in a folder of their own, and an
// application whose colours, direction and font are put back after each test.
#pragma once

#include "samples/SampleFiles.h"
#include "screens/Gallery.h"
#include "screens/Themes.h"
#include "spec/Application.h"
#include "support/ModelFixture.h"
#include "support/TemporaryFolder.h"

#include <sstream>

#include <QApplication>
#include <QLocale>

class TLookTest : public TModelTest {
protected:
    TLookTest() {
        std::ostringstream told;
        if (!WriteSampleFiles(folder.Path(), told, told))
            throw std::runtime_error(told.str());
        QLocale::setDefault(QLocale::c());
    }
    ~TLookTest() override {
        QApplication::setPalette(oldPalette_);
        QApplication::setLayoutDirection(oldDirection_);
        QApplication::setFont(oldFont_);
        QLocale::setDefault(QLocale::c());
    }

    static void UseFont(double share) {
        QFont font = QApplication::font();
        font.setPointSizeF(font.pointSizeF() * share);
        QApplication::setFont(font);
    }

    void Visit(const TGallery::TVisitor &visitor) {
        SetUpApplication();
        TGallery gallery(QDir(QString::fromStdString(folder.Path().string())));
        gallery.Visit(visitor);
    }

    TTemporaryFolder folder;

private:
    QPalette oldPalette_ = QApplication::palette();
    Qt::LayoutDirection oldDirection_ = QApplication::layoutDirection();
    QFont oldFont_ = QApplication::font();
};
