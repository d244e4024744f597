// Shows every page, dialog and menu of the real program, one after the other, with the sample image
// loaded and something to see on each. What is done with them - measured, photographed - is the
// caller's.
#pragma once

#include <functional>
#include <memory>

#include <QDir>
#include <QString>
#include <QWidget>

class TfrmNotebook;

class TGallery {
public:
    /// Gets the name of each exhibit, such as "03-fuel-maps", and its window, laid out and shown.
    using TVisitor = std::function<void(const QString &name, QWidget &window)>;

    /// @param samples  folder of the sample files; becomes the current one for the gallery's life
    explicit TGallery(const QDir &samples);
    ~TGallery();
    TGallery(const TGallery &) = delete;
    TGallery &operator=(const TGallery &) = delete;

    /// The whole tour. Throws std::runtime_error when a control is missing.
    void Visit(const TVisitor &visitor);

    TfrmNotebook &Window() { return *window_; }

    /// Runs the event loop until nothing is left to lay out.
    static void Settle();

private:
    class TSampleDialogs;

    template <class Control>
    Control &Find(const QString &name, int page);
    void SelectPage(int page);

    void ShowPages(const TVisitor &visitor);
    void ShowEdits(const TVisitor &visitor);
    void ShowContents(const TVisitor &visitor);
    void ShowToolWindow(const TVisitor &visitor);
    void ShowWindows(const TVisitor &visitor);
    void ShowBoxes(const TVisitor &visitor);
    void ShowMenus(const TVisitor &visitor);
    void ShowChanges(const TVisitor &visitor);
    void ShowMoved(const TVisitor &visitor);
    void ShowFound(const TVisitor &visitor);

    QString oldFolder_;
    QDir samples_;
    std::unique_ptr<TSampleDialogs> dialogs_;
    std::unique_ptr<TfrmNotebook> window_;
};
