// The popup menu of the contents view: captions, order and what each item starts. The work is the
// page's, its searches' and its placing's.
#pragma once

#include <functional>
#include <initializer_list>

#include <QMenu>

class TFilePlacing;
class TFileSearches;
class TfrmFileContents;

class TFileMenu : public QMenu {
    Q_OBJECT
public:
    /// The menu belongs to `page`.
    explicit TFileMenu(TfrmFileContents &page);

private:
    struct TItem {
        const char *name;
        QString caption;
        std::function<void()> handler;
    };

    void AddSearches(TFileSearches &searches);
    void AddPlacing(TFilePlacing &placing);
    void AddItems(QMenu &menu, std::initializer_list<TItem> items);
    void AddSubmenu(const char *name, const QString &caption, std::initializer_list<TItem> items);
};
