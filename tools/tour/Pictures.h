// Takes pictures of what is on the screen, and writes beside them, in log.txt, what each of them
// shows.
#pragma once

#include <QDir>
#include <QImage>
#include <QWidget>

class TPictures {
public:
    /// @param folder  existing; its log.txt is begun anew
    /// @param roms    folder whose name is left out of the log
    /// @throws ETourFailed here and below when something cannot be written
    TPictures(const QDir &folder, const QDir &roms);

    /// Takes the main window with its frame and all windows and menus over it, as `name`.png. The
    /// event loop runs meanwhile.
    void Take(QWidget &main, const QString &name);

private:
    void Log(QWidget &main, const QString &name, const QImage &picture);

    QDir folder_;
    QDir roms_;
};
