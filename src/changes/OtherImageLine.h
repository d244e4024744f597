// The line of controls by which a page gets another image: a button that asks for its file, and a
// list of where its maps are.
#pragma once

#include "changes/OtherImage.h"

#include <functional>

#include <QWidget>

class QComboBox;
class QPushButton;

class TOtherImageLine : public QWidget {
    Q_OBJECT
public:
    struct TWords {
        QString choose; ///< caption of the button
        QString chooseHint;
        QString specsHint;
        QString noSpec; ///< first in the list: no spec file says where the maps are
    };

    /// There is no other image yet.
    TOtherImageLine(QWidget *parent, const TWords &words);

    /// Another image was chosen, or another place of its maps.
    std::function<void()> OnChange;

    const std::optional<TOtherImage> &Other() const { return other_; }
    /// Which of its spec files is chosen; none: the first in the list.
    std::optional<std::size_t> Spec() const;

    /// Takes another image; the list stands at its first line then.
    void Take(TOtherImage other);
    /// Asks for a file, from the folder of `beside`, and takes it; false when the user chose none.
    /// Throws EFileError; what was there before stays.
    bool Ask(const std::filesystem::path &beside);
    /// Chooses the spec file that is named as the image is, if there is one.
    void ChooseOwnSpec();

    QPushButton *Button() const { return btnOther_; }
    QComboBox *Specs() const { return cboSpec_; }

private:
    void FillSpecs();

    TWords words_;
    std::optional<TOtherImage> other_;
    QPushButton *btnOther_;
    QComboBox *cboSpec_;
};
