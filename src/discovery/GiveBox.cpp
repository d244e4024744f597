#include "discovery/GiveBox.h"

#include "forms/Commands.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/Named.h"

#include <QGridLayout>
#include <QMenu>
#include <QPushButton>

namespace {
struct TGiveTexts {
    const char *button;
    const char *action;
    const char *caption; ///< for TGiveBox::tr(); its first sign is its key
    Qt::Key key;
};

/// Of notebookMaps.
constexpr std::array<TGiveTexts, notebookMaps.size()> giveTexts{
    {{"btnGiveFuelPT", "actGiveFuelPT", QT_TRANSLATE_NOOP("TGiveBox", "1 Fuel PT"), Qt::Key_1},
     {"btnGiveFuelIdle", "actGiveFuelIdle", QT_TRANSLATE_NOOP("TGiveBox", "2 Fuel Idle"),
      Qt::Key_2},
     {"btnGiveFuelWOT", "actGiveFuelWOT", QT_TRANSLATE_NOOP("TGiveBox", "3 Fuel WOT"), Qt::Key_3},
     {"btnGiveTimingPT", "actGiveTimingPT", QT_TRANSLATE_NOOP("TGiveBox", "4 Timing PT"),
      Qt::Key_4},
     {"btnGiveTimingIdle", "actGiveTimingIdle", QT_TRANSLATE_NOOP("TGiveBox", "5 Timing Idle"),
      Qt::Key_5},
     {"btnGiveTimingWOT", "actGiveTimingWOT", QT_TRANSLATE_NOOP("TGiveBox", "6 Timing WOT"),
      Qt::Key_6}}};

constexpr int perLine = notebookMaps.size() / 2; ///< one line of fuel, one of timing
} // namespace

TGiveBox::TGiveBox(QWidget *parent) : QGroupBox(tr("Give to the notebook"), parent) {
    setObjectName("grpGive");
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto *grid = new QGridLayout(this);
    int place = 0;
    for (std::size_t i = 0; i < buttons_.size(); ++i, ++place) {
        buttons_[i] = Named(giveTexts[i].button, new QPushButton(tr(giveTexts[i].caption), this));
        ConnectGuarded(buttons_[i], &QPushButton::clicked, this,
                       [this, i] { OnGive(notebookMaps[i]); });
        grid->addWidget(buttons_[i], place / perLine, place % perLine);
    }
    btnGiveSix_ = Named("btnGiveSix", new QPushButton(tr("Give All Six"), this));
    SetHint(btnGiveSix_,
            tr("Move the maps of the notebook to the six places that seem to belong together"));
    ConnectGuarded(btnGiveSix_, &QPushButton::clicked, this, [this] { OnGiveSix(); });
    grid->addWidget(btnGiveSix_, 2, 0, 1, perLine);
    Allow(nullptr);
    AllowSix(false);
}

void TGiveBox::AddCommandsTo(QWidget &pane, const std::function<bool()> &can) {
    QMenu &menu = *AddCommandMenu(pane, "mnuGive", tr("Gi&ve to"));
    for (std::size_t i = 0; i < buttons_.size(); ++i)
        AddCommand(menu, {.name = giveTexts[i].action,
                          .text = '&' + tr(giveTexts[i].caption),
                          .keys = {giveTexts[i].key},
                          .run = [this, i] { OnGive(notebookMaps[i]); },
                          .can = can});
}

void TGiveBox::Allow(const TMapPlace *chosen) {
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        const bool takes = chosen && notebookMaps[i].Takes(*chosen);
        buttons_[i]->setEnabled(takes);
        SetHint(buttons_[i], chosen && !takes ? WhyNot(*chosen)
                                              : tr("Move this map of the notebook to the place "
                                                   "that is chosen in the list"));
    }
}

void TGiveBox::AllowSix(bool allow) {
    btnGiveSix_->setEnabled(allow);
}

QString TGiveBox::WhyNot(const TMapPlace &place) {
    return place.Is2D() ? tr("A map over load can only be a part throttle map")
                        : tr("A map without load can only be an idle or a full throttle map");
}
