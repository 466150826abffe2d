// A pointer that each thread has for itself, and that a function of the C library releases when the thread ends.
//
// In place of a thread-local object with a destructor: where there is no memory to note that one is to be destroyed,
// the C library ends the program. The function is the C library's own, since one of ours may be unloaded before the
// thread ends.
#ifndef VKPROTOCOLSTACK_SUPPORT_THREAD_POINTER_H
#define VKPROTOCOLSTACK_SUPPORT_THREAD_POINTER_H

#include <pthread.h>

#include <atomic>

namespace jsonparser::support {

/// To be constinit: good at any time, without a pointer before and after its Lifetime.
class ThreadPointer {
  public:
    /// The calling thread's, null where it has none or it was released.
    void* get() const {
        if (exists()) [[likely]]
            return pthread_getspecific(key_);
        return nullptr;
    }

    /// Does not release the one before. False where there is no memory for another than null, or no Lifetime.
    bool set(void* pointer) { return exists() && pthread_setspecific(key_, pointer) == 0; }

    /// Whether its Lifetime is over, since the program ends or the library is unloaded: what threads had they keep.
    bool isOver() const { return state_.load(std::memory_order_acquire) == State::Over; }

    /// From the first use to the program's end, or until the library is unloaded: a static object in a function.
    class Lifetime {
      public:
        /// @param release is called with a thread's pointer, unless that is null, when the thread ends
        Lifetime(ThreadPointer& pointer, void (*release)(void*)) : pointer_(pointer), release_(release) {
            if (pthread_key_create(&pointer_.key_, release) == 0) pointer_.change(State::Exists);
        }
        /// Releases that of the calling thread. Threads that go on keep theirs for good.
        ~Lifetime() {
            void* const own = pointer_.get();
            if (own != nullptr) pointer_.set(nullptr);
            const bool existed = pointer_.exists();
            pointer_.change(State::Over);
            if (existed) pthread_key_delete(pointer_.key_);
            if (own != nullptr) release_(own);
        }
        Lifetime(const Lifetime&) = delete;
        Lifetime& operator=(const Lifetime&) = delete;

      private:
        ThreadPointer& pointer_;
        void (*release_)(void*);
    };

  private:
    enum class State : unsigned char { NotYet, Exists, Over };

    bool exists() const { return state_.load(std::memory_order_acquire) == State::Exists; }
    void change(State state) { state_.store(state, std::memory_order_release); }

    std::atomic<State> state_{State::NotYet};
    pthread_key_t key_{};
};

}  // namespace jsonparser::support

#endif
