// A group box of radio buttons in columns, addressed by item index. Choosing by program runs
// nothing; every choice of the user runs OnClick, the chosen item clicked again included.
#pragma once

#include <functional>
#include <memory>

#include <QGroupBox>
#include <QStringList>

class QButtonGroup;
class QGridLayout;

class TRadioGroup : public QGroupBox {
    Q_OBJECT
public:
    /// An empty group. Items fill the columns one after the other, top down.
    explicit TRadioGroup(const QString &title, int columns = 1, QWidget *parent = nullptr);
    ~TRadioGroup() override;

    /// Runs, guarded, when the user has chosen an item; may clear and refill the group.
    std::function<void()> OnClick;

    /// Removes all items; none is selected then.
    void Clear();

    /// Adds an item, shown letter by letter: no markup, no shortcut letters; a control character
    /// shows as a replacement sign, and what does not fit is cut with an ellipsis. Its button is
    /// called object name + index, so the group is named before it is filled.
    void AddItem(const QString &text);

    int ItemCount() const { return int(items_.size()); }

    /// The text as it was added. `index` from 0 to ItemCount() - 1, else empty.
    QString Item(int index) const { return items_.value(index); }

    /// The selected item, -1 for none.
    int ItemIndex() const;

    /// Selects an item without running OnClick; out of range selects none.
    void SetItemIndex(int index);

private:
    void Arrange();
    void OneTabStop();

    int columns_;
    QGridLayout *grid_;
    QButtonGroup *buttons_;
    QStringList items_;                ///< the texts; the ids of their buttons are the indices
    std::unique_ptr<QWidget> retired_; ///< removed buttons, until control leaves their handlers
};
