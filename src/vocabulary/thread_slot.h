// One object per thread for the texts that a call hands out and keeps until the same thread's next
// call: each thread writes only its own, so threads never see each other's texts, and one thread
// sees exactly what a process with one thread would.
//
// The objects are never freed. When a thread ends, its object is cleared and goes to the next
// thread that asks, so a pointer handed out before the end stays readable memory (a later
// thread's text may then show through it) and the number of objects is that of the threads
// that used them at one time. The lock is taken only when a thread takes or gives back its
// object, never on a call.
#ifndef QRV_VOCABULARY_THREAD_SLOT_H
#define QRV_VOCABULARY_THREAD_SLOT_H

#include <mutex>

namespace qrv {

// T is default-constructible and has clear(), which makes it what a new object is.
template <class T>
T& threadSlot() {
    struct Slot {
        T object;
        Slot* nextSpare = nullptr;
    };
    struct Pool {
        std::mutex lock;
        Slot* spare = nullptr;  // slots given back, each linking to the next
    };
    // Never destroyed: threads (the main thread included) give their slot back after the
    // library's statics may have gone.
    static Pool& pool = *new Pool;

    struct Lease {
        Slot* slot = nullptr;
        Lease() {
            std::lock_guard<std::mutex> hold(pool.lock);
            if (pool.spare) {
                slot = pool.spare;
                pool.spare = slot->nextSpare;
            } else {
                slot = new Slot();
            }
        }
        ~Lease() {
            slot->object.clear();
            std::lock_guard<std::mutex> hold(pool.lock);
            slot->nextSpare = pool.spare;
            pool.spare = slot;
        }
        Lease(const Lease&) = delete;
        Lease& operator=(const Lease&) = delete;
    };
    thread_local Lease lease;
    return lease.slot->object;
}

}  // namespace qrv

#endif
