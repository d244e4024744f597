// The popup menu of the contents view: captions, order and what each item starts. The work is the
// page's.
#pragma once

#include <functional>

#include <QMenu>

class TfrmFileContents;

class TFileMenu : public QMenu {
    Q_OBJECT
public:
    /// The menu belongs to `page`.
    explicit TFileMenu(TfrmFileContents &page);

private:
    void Add(QMenu &menu, const char *name, const QString &caption, std::function<void()> handler);
    QMenu &AddSubmenu(const char *name, const QString &caption);
    void AddText();
    void AddFromCurrentCell();
    void AddParameters();
    void AddManualSearches();
    void AddMapSearches();
    void AddPlacing();

    TfrmFileContents &page_;
};
