// Placing the maps by hand: the dialog "Offset Entry", and the two ways in which the page "ROM
// Information" opens it, which differ on purpose.
#include "pages/OffsetDialog.h"
#include "pages/ROMInfoFixture.h"

#include <QTest>

namespace {
namespace fs = std::filesystem;

const QStringList mapEdits{"edtFuelPTMapOffset",   "edtFuelIdMapOffset",   "edtFuelFTMapOffset",
                           "edtTimingPTMapOffset", "edtTimingIdMapOffset", "edtTimingFTMapOffset"};

class TOffsetEntryTest : public TROMInfoTest {
protected:
    using TDialog = TInOffsetDialog;

    void SetUp() override {
        TfrmBaseForm::ProgRegKey = "\\Software\\Kelvane\\Ferrolyn";
        TROMInfoTest::SetUp();
        rom = MakeROM("A.BIN", 7);
        LoadAndPlace(rom);
    }
    void TearDown() override { TfrmBaseForm::ProgRegKey.clear(); }

    /// Chooses the manual item and does `act` in the dialog.
    void Manual(const std::function<void(TfrmOffsetEntry &)> &act) {
        const TDialog dialog(act);
        Choose(manual);
    }
    static void TypeAll(TfrmOffsetEntry &dialog, const QStringList &texts) {
        for (int i = 0; i < texts.size(); ++i)
            TDialog::Type(dialog, mapEdits[i], texts[i]);
    }
    std::vector<int> Places() {
        std::vector<int> places;
        for (const TMapSet *maps : {static_cast<TMapSet *>(&workspace.fuelMapSet),
                                    static_cast<TMapSet *>(&workspace.timingMapSet)})
            for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
                places.push_back(maps->Map(kind).GetLocation());
        return places;
    }
    const std::vector<int> planted{fuelPT, fuelIdle, fuelWOT, timingPT, timingIdle, timingWOT};

    fs::path rom;
};

TEST_F(TOffsetEntryTest, AFreshDialogShowsZerosAndNoDataOffset) {
    Manual([](TfrmOffsetEntry &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Offset Entry");
        EXPECT_EQ(dialog.size(), QSize(405, 293));
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(dialog.btnOK->text(), "&OK");
        EXPECT_EQ(dialog.btnCancel->text(), "Cancel");
        EXPECT_EQ(FindControl<QLineEdit>(dialog, "edtDataOffset").text(), "");
        for (const QString &name : mapEdits)
            EXPECT_EQ(FindControl<QLineEdit>(dialog, name).text(), "$0") << name.toStdString();
        EXPECT_FALSE(dialog.modified);
        TDialog::Cancel(dialog);
    });
    EXPECT_TRUE(dialogs.questions.empty()) << "the dialog's own zeros are no change";
}

TEST_F(TOffsetEntryTest, TheDialogIsCentredOnItsOwner) {
    host.setGeometry(100, 80, 640, 480);
    host.show();
    Manual([&](TfrmOffsetEntry &dialog) {
        const QPoint off = dialog.frameGeometry().center() - host.frameGeometry().center();
        EXPECT_LE(qAbs(off.x()), 2);
        EXPECT_LE(qAbs(off.y()), 2);
        TDialog::Cancel(dialog);
    });
}

TEST_F(TOffsetEntryTest, EachEditStandsBesideItsLabelInOrder) {
    Manual([](TfrmOffsetEntry &dialog) {
        QStringList texts;
        QStringList fields;
        for (const QLabel *label : dialog.findChildren<QLabel *>()) {
            texts << label->text();
            if (label->buddy()) {
                fields << label->buddy()->objectName();
                EXPECT_EQ(label->y() + label->height() / 2,
                          label->buddy()->y() + label->buddy()->height() / 2)
                    << texts.last().toStdString();
            }
        }
        EXPECT_EQ(texts,
                  (QStringList{"Main Data Offset (try $0 or $100)", "$ = Hex Value",
                               "Fuel PT Offset", "Fuel Idle Offset", "Fuel WOT Offset",
                               "Timing PT Offset", "Timing Idle Offset", "Timing WOT Offset"}));
        EXPECT_EQ(fields, QStringList{"edtDataOffset"} + mapEdits);
        TDialog::Cancel(dialog);
    });
}

TEST_F(TOffsetEntryTest, OKPlacesAllSixMapsAndNothingElse) {
    Image().Poke(0x7000, 99);
    host.setWindowTitle("before");
    Manual([](TfrmOffsetEntry &dialog) {
        TypeAll(dialog, {"$2000", "$2200", "8960", " $1000", "$1200", "$1300"});
        TDialog::OK(dialog);
    });
    EXPECT_EQ(Places(),
              (std::vector<int>{timingPT, timingIdle, timingWOT, fuelPT, fuelIdle, fuelWOT}));
    EXPECT_EQ(Image().Peek(0x7000), 99) << "the image is not read again";
    EXPECT_EQ(Caption(), "before");
    EXPECT_EQ(EnabledButtons(), "lcm");
    EXPECT_EQ(Group().Item(Group().ItemIndex()), manual);
    EXPECT_EQ(page->TemplateIndex(), page->LastItemIndex());
    EXPECT_TRUE(dialogs.questions.empty()) << "OK never asks";
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TOffsetEntryTest, OKWithAllZerosZeroesBothSetsAndPlacesNothing) {
    Manual(TDialog::OK);
    EXPECT_TRUE(AllZero());
    EXPECT_EQ(workspace.fuelMapSet.PTMap->axes->rpmAxis->offset, fuelPT);
    EXPECT_EQ(RawOf(*workspace.timingMapSet.PTMap->data).size(), 12U);
    EXPECT_EQ(EnabledButtons(), "lcm");
}

TEST_F(TOffsetEntryTest, TheDataOffsetIsNotAddedOnTheListPath) {
    Manual([](TfrmOffsetEntry &dialog) {
        TDialog::Type(dialog, "edtDataOffset", "$100");
        TDialog::Type(dialog, "edtFuelPTMapOffset", "$1A00");
        TDialog::OK(dialog);
    });
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), 0x1A00);
}

TEST_F(TOffsetEntryTest, ADataOffsetThatIsNoNumberIsNotReadOnTheListPath) {
    Manual([](TfrmOffsetEntry &dialog) {
        TDialog::Type(dialog, "edtDataOffset", "junk");
        TDialog::OK(dialog);
    });
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(EnabledButtons(), "lcm");
}

TEST_F(TOffsetEntryTest, CancelClearsTheSelectionOnly) {
    Image().Poke(0x7000, 99);
    Manual(TDialog::Cancel);
    EXPECT_EQ(Group().ItemIndex(), -1);
    EXPECT_EQ(Places(), planted);
    EXPECT_FALSE(AllZero());
    EXPECT_EQ(Image().Peek(0x7000), 99);
    EXPECT_EQ(EnabledButtons(), "lc");
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
}

TEST_F(TOffsetEntryTest, AfterCancelTheImageStaysInForce) {
    Manual(TDialog::OK);
    Manual(TDialog::Cancel);
    EXPECT_EQ(page->TemplateIndex(), page->LastItemIndex()) << "what the last choice recorded";
    Image().Poke(0x7000, 99);
    page->ApplyROM();
    EXPECT_EQ(Image().Peek(0x7000), 7) << "read again";
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
    EXPECT_EQ(EnabledButtons(), "lcm");
}

TEST_F(TOffsetEntryTest, CancelLeavesManualOffsetsEnabled) {
    Manual(TDialog::OK);
    Manual(TDialog::Cancel);
    EXPECT_EQ(EnabledButtons(), "lcm");
    EXPECT_EQ(Group().ItemIndex(), -1);
}

TEST_F(TOffsetEntryTest, TheSelectionClearedByCancelCanBeChosenAgain) {
    Manual(TDialog::Cancel);
    Manual(TDialog::OK);
    EXPECT_EQ(Group().ItemIndex(), page->LastItemIndex());
}

TEST_F(TOffsetEntryTest, ATextThatIsNoIntegerIsAnErrorAfterOK) {
    for (int field = 0; field < mapEdits.size(); ++field) {
        dialogs.messages.clear();
        bool dialogGone = false;
        dialogs.duringMessage = [&] {
            dialogGone = page->window()->findChildren<TfrmOffsetEntry *>().isEmpty();
        };
        Manual([&](TfrmOffsetEntry &dialog) {
            TypeAll(dialog, QStringList(6, "$3000"));
            TDialog::Type(dialog, mapEdits[field], "0x10");
            TDialog::OK(dialog);
        });
        EXPECT_EQ(dialogs.messages, QStringList{"'0x10' is not a valid integer value"});
        EXPECT_TRUE(dialogGone);
        EXPECT_EQ(Places(), planted) << field;
        EXPECT_FALSE(AllZero());
        EXPECT_EQ(EnabledButtons(), "lc") << "the button is not updated";
    }
}

TEST_F(TOffsetEntryTest, TheFirstBadFieldInOrderIsNamed) {
    Manual([](TfrmOffsetEntry &dialog) {
        TypeAll(dialog, {"", "c", "b", "$0", "$0", "a"});
        TDialog::OK(dialog);
    });
    EXPECT_EQ(dialogs.messages, QStringList{"'' is not a valid integer value"});
}

TEST_F(TOffsetEntryTest, TheButtonOnlyReadsTheImageAgain) {
    Manual([](TfrmOffsetEntry &dialog) {
        TypeAll(dialog, {"$1000", "$1200", "$1300", "$2000", "$2200", "$2300"});
        TDialog::OK(dialog);
    });
    Image().Poke(0x7000, 99);
    {
        const TDialog dialog([](TfrmOffsetEntry &form) {
            for (const QString &name : mapEdits)
                EXPECT_EQ(FindControl<QLineEdit>(form, name).text(), "$0") << "always afresh";
            TypeAll(form, QStringList(6, "junk"));
            TDialog::OK(form);
        });
        Button("btnOffsetEntry").click();
    }
    EXPECT_EQ(Places(), planted);
    EXPECT_TRUE(dialogs.messages.empty()) << "what is typed here is not read";
    EXPECT_EQ(Image().Peek(0x7000), 7);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
    EXPECT_EQ(EnabledButtons(), "lcm");
}

TEST_F(TOffsetEntryTest, CancelBehindTheButtonDoesNothing) {
    Manual(TDialog::OK);
    Image().Poke(0x7000, 99);
    {
        const TDialog dialog(TDialog::Cancel);
        Button("btnOffsetEntry").click();
    }
    EXPECT_EQ(Image().Peek(0x7000), 99);
    EXPECT_EQ(Group().ItemIndex(), page->LastItemIndex());
    EXPECT_EQ(EnabledButtons(), "lcm");
}

struct TClosing {
    const char *name;
    std::function<void(TfrmOffsetEntry &)> close;
};
class TOffsetEntryCloseTest : public TOffsetEntryTest,
                              public testing::WithParamInterface<TClosing> {};

TEST_P(TOffsetEntryCloseTest, ClosingAnotherWayAfterTypingAsks) {
    dialogs.answers = {TAnswer::Cancel, TAnswer::No};
    Manual([](TfrmOffsetEntry &dialog) {
        QTest::keyClicks(&FindControl<QLineEdit>(dialog, "edtDataOffset"), "1");
        EXPECT_TRUE(dialog.modified);
        GetParam().close(dialog);
        EXPECT_TRUE(dialog.isVisible()) << "Cancel keeps it open";
        GetParam().close(dialog);
    });
    EXPECT_EQ(dialogs.questions, (QStringList{"Save Changes?", "Save Changes?"}));
    EXPECT_EQ(Group().ItemIndex(), -1);
    EXPECT_EQ(Places(), planted);
}
INSTANTIATE_TEST_SUITE_P(Ways, TOffsetEntryCloseTest,
                         testing::Values(TClosing{"Button", TInOffsetDialog::Cancel},
                                         TClosing{"Escape",
                                                  [](TfrmOffsetEntry &dialog) {
                                                      QTest::keyClick(&dialog, Qt::Key_Escape);
                                                  }},
                                         TClosing{"Frame",
                                                  [](TfrmOffsetEntry &dialog) { dialog.close(); }}),
                         [](const auto &way) { return std::string(way.param.name); });

// "Yes" saves and closes, and this dialog has nothing to save: only OK places the maps.
TEST_P(TOffsetEntryCloseTest, YesClosesAndPlacesNothing) {
    dialogs.answers = {TAnswer::Yes};
    Manual([](TfrmOffsetEntry &dialog) {
        TypeAll(dialog, {"$2000", "$2200", "$2300", "$1000", "$1200", "$1300"});
        GetParam().close(dialog);
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(dialog.result(), QDialog::Rejected);
    });
    EXPECT_EQ(dialogs.questions, QStringList{"Save Changes?"});
    EXPECT_EQ(Group().ItemIndex(), -1);
    EXPECT_EQ(Places(), planted);
    EXPECT_FALSE(AllZero());
    EXPECT_EQ(EnabledButtons(), "lc");
}

TEST_P(TOffsetEntryCloseTest, YesBehindTheButtonReadsNothingAgain) {
    Manual(TDialog::OK);
    Image().Poke(0x7000, 99);
    dialogs.answers = {TAnswer::Yes};
    const TDialog dialog([](TfrmOffsetEntry &form) {
        TDialog::Type(form, "edtFuelPTMapOffset", "$2000");
        GetParam().close(form);
    });
    Button("btnOffsetEntry").click();
    EXPECT_EQ(Image().Peek(0x7000), 99);
    EXPECT_EQ(workspace.fuelMapSet.PTMap->axes->rpmAxis->offset, fuelPT);
}

TEST_F(TOffsetEntryTest, EveryEditCountsAsAChange) {
    for (const QString &name : mapEdits + QStringList{"edtDataOffset"}) {
        TfrmOffsetEntry dialog(nullptr, workspace);
        ASSERT_FALSE(dialog.modified);
        TDialog::Type(dialog, name, "1");
        EXPECT_TRUE(dialog.modified) << name.toStdString();
    }
}

TEST_F(TOffsetEntryTest, AFilledEditKeepsItsTextOnShow) {
    TfrmOffsetEntry dialog(nullptr, workspace);
    TDialog::Type(dialog, "edtFuelPTMapOffset", "$77");
    dialog.show();
    EXPECT_EQ(FindControl<QLineEdit>(dialog, "edtFuelPTMapOffset").text(), "$77");
    EXPECT_EQ(FindControl<QLineEdit>(dialog, "edtFuelIdMapOffset").text(), "$0");
    EXPECT_EQ(FindControl<QLineEdit>(dialog, "edtDataOffset").text(), "");
}

TEST_F(TOffsetEntryTest, LoadOffsetsAddsTheDataOffsetToEachMap) {
    TfrmOffsetEntry dialog(nullptr, workspace);
    TDialog::Type(dialog, "edtDataOffset", " $100 ");
    TypeAll(dialog, {"$1F00", "$2100", "$2200", "$0F00", "4352", "-256"});
    EXPECT_TRUE(dialog.LoadOffsets());
    EXPECT_EQ(Places(), (std::vector<int>{0x2000, 0x2200, 0x2300, 0x1000, 0x1200, 0}));
}

TEST_F(TOffsetEntryTest, LoadOffsetsLeavesFullThrottleWithALoadPointOf0) {
    const auto loadPoint = [](const TMap &map) {
        return map.axes->throttleAxis->values->GetItem(0, 0)->GetValue();
    };
    TfrmOffsetEntry dialog(nullptr, workspace);
    TDialog::Type(dialog, "edtDataOffset", "0");
    TypeAll(dialog, {"$2000", "$2200", "$2300", "$1000", "$1200", "$1300"});
    ASSERT_EQ(loadPoint(*workspace.fuelMapSet.WOTMap), 100);
    dialog.LoadOffsets();
    EXPECT_EQ(loadPoint(*workspace.fuelMapSet.WOTMap), 0) << "placed one by one, not as a set";
    EXPECT_EQ(loadPoint(*workspace.timingMapSet.WOTMap), 0);
    EXPECT_EQ(loadPoint(*workspace.fuelMapSet.IdleMap), 0);
}

TEST_F(TOffsetEntryTest, LoadOffsetsPlacesFuelAndTimingByTurnsUntilAnError) {
    TfrmOffsetEntry dialog(nullptr, workspace);
    TDialog::Type(dialog, "edtDataOffset", "0");
    TypeAll(dialog, {"$2000", "junk", "$2000", "$1000", "$1000", "$1000"});
    EXPECT_THROW(dialog.LoadOffsets(), EConvertError);
    EXPECT_EQ(Places(),
              (std::vector<int>{timingPT, fuelIdle, fuelWOT, fuelPT, timingIdle, timingWOT}));
}

TEST_F(TOffsetEntryTest, LoadOffsetsNeedsADataOffset) {
    TfrmOffsetEntry dialog(nullptr, workspace);
    TypeAll(dialog, QStringList(6, "$3000"));
    EXPECT_THROW(dialog.LoadOffsets(), EConvertError);
    EXPECT_EQ(Places(), planted);
}
} // namespace
