#include "forms/Settings.h"

#include <QSettings>

namespace {
class TOwnSettings : public QSettings {
public:
    TOwnSettings() : QSettings(IniFormat, UserScope, "Ferrolyn", "Ferrolyn") {}
};
} // namespace

QVariant Setting(const QString &name, const QVariant &usual) {
    return TOwnSettings().value(name, usual);
}

void KeepSetting(const QString &name, const QVariant &value) {
    TOwnSettings().setValue(name, value);
}
