// The popup menu of the contents view: captions, order and what each item starts. The work is the
// page's.
#pragma once

#include <functional>
#include <initializer_list>

#include <QMenu>

class TfrmFileContents;

class TFileMenu : public QMenu {
    Q_OBJECT
public:
    /// The menu belongs to `page`.
    explicit TFileMenu(TfrmFileContents &page);

private:
    struct TItem;

    QAction &Add(QMenu &menu, const char *name, const QString &caption,
                 std::function<void()> handler);
    void AddItems(QMenu &menu, std::initializer_list<TItem> items);
    QMenu &AddSubmenu(const char *name, const QString &caption, std::initializer_list<TItem> items);
    void AddParameters();

    TfrmFileContents &page_;
};
