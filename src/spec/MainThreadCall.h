// The synchronous hand-over from a worker thread to the main thread: the worker waits until its
// function has run there, or until it is asked to give up. One object serves one worker; the
// worker itself belongs to the unit that hands over (ThdTimer.h, SplashScreen.h).
#pragma once

#include "system/Stop.h"

#include <functional>
#include <memory>

#include <QObject>

/// Lives in the main thread and outlives its worker: whoever owns both asks the worker to stop and
/// joins it before this object goes. The object may be destroyed out of a function that it runs.
class TMainThreadCall : public QObject {
    Q_OBJECT
public:
    TMainThreadCall();

    /// Called by the worker: has `work` run by the main thread's event loop and waits for its end.
    ///
    /// @param stop  giving up: work that has not begun will then never begin; work that has begun
    ///              goes on without being waited for, so it must not use the worker's locals
    /// @return true when `work` has ended, false after giving up
    /// An exception out of `work` is shown like that of any handler and counts as its end.
    bool Run(TStop &stop, std::function<void()> work);

protected:
    void customEvent(QEvent *event) override;

private:
    struct TCall;
    struct TMailbox;
    std::shared_ptr<TMailbox> mailbox_;
};
