#include "spec/MainThreadCall.h"

#include "forms/Guard.h"

#include <condition_variable>
#include <mutex>
#include <utility>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>

struct TMainThreadCall::TCall {
    std::function<void()> work;
    bool done = false;
};

/// Shared with the main thread's running call, which may outlast both the worker and the object.
struct TMainThreadCall::TMailbox {
    std::mutex mutex;
    std::condition_variable changed;
    std::shared_ptr<TCall> waiting; ///< handed over, not begun

    void RunWaiting();
};

TMainThreadCall::TMainThreadCall() : mailbox_(std::make_shared<TMailbox>()) {}

bool TMainThreadCall::Run(TStop &stop, std::function<void()> work) {
    if (stop.Requested())
        return false;
    auto wakeUp = std::make_unique<QEvent>(QEvent::User);
    const auto call = std::make_shared<TCall>(TCall{std::move(work)});
    const TStop::TWaker waker(stop, mailbox_->mutex, mailbox_->changed);
    std::unique_lock lock(mailbox_->mutex);
    mailbox_->waiting = call;
    lock.unlock();
    // The event carries nothing: a given-up call leaves one behind that finds an empty mailbox.
    QCoreApplication::postEvent(this, wakeUp.release());
    lock.lock();
    mailbox_->changed.wait(lock, [&] { return call->done || stop.Requested(); });
    if (call->done)
        return true;
    mailbox_->waiting.reset();
    return false;
}

void TMainThreadCall::customEvent(QEvent *) {
    // The work may wait in an event loop of its own. The GLib dispatcher does not look there at
    // events that were queued together with this one, other workers' calls for example, unless it
    // is woken.
    QCoreApplication::eventDispatcher()->wakeUp();
    const auto mailbox = mailbox_; // the work may destroy this object
    mailbox->RunWaiting();
}

void TMainThreadCall::TMailbox::RunWaiting() {
    std::unique_lock lock(mutex);
    const auto call = std::exchange(waiting, nullptr);
    lock.unlock();
    if (!call)
        return;
    Guarded(call->work);
    lock.lock();
    call->done = true;
    changed.notify_all();
}
