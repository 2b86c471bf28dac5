// Process-wide singletons that are made on first use and destroyed, newest first, when the process
// shuts down.
//
// All services that were ever used form one list, newest at its head. They end with the last
// process, and those that were used after it when the program exits or the module is unloaded. One
// thread, the user interface's, uses them.
#pragma once

#include <cstddef>
#include <memory>
#include <new>

namespace Kesto {

class CService {
public:
    CService() = default;
    CService(const CService&) = delete;
    CService& operator=(const CService&) = delete;
    virtual ~CService();

    // Deletes the object, if there is one.
    virtual void Destroy() = 0;

    // Deletes the object, if there is one, and makes a new one in its place.
    virtual void Recreate() = 0;

    // Destroys the objects of all listed services, newest first, and empties the list. A service
    // that is used later, even by an object that is going, is made and listed anew.
    static void ShutdownAll();

    // Recreates all listed services, newest first, as if each was used for the first time. Those
    // that join meanwhile are new already.
    static void RecreateAll();

protected:
    // Puts this service at the head of the list; one that is in it already moves.
    void Link();

private:
    void Unlink();

    CService* fNext = nullptr;
};

inline void ShutdownServices()
{
    CService::ShutdownAll();
}

// The holder of the one `T`.
template <class T>
class CServiceT : public CService {
public:
    // The one holder, made at its first use. It never ends: an object must not end in the order in
    // which static objects do, which isn't that of the list.
    static CServiceT& Holder()
    {
        alignas(CServiceT) static std::byte room[sizeof(CServiceT)];
        static CServiceT& holder = *::new (static_cast<void*>(room)) CServiceT;
        return holder;
    }

    // The object. If it is absent it is made when `create` is true, and null is returned otherwise.
    static T* Get(bool create = true)
    {
        CServiceT& holder = Holder();
        if (holder.fObject == nullptr && create && holder.Create() != nullptr)
            holder.Link();
        return holder.fObject.get();
    }

    void Destroy() override { fObject.reset(); }

    // Makes a new object; a former one is deleted.
    virtual T* Create()
    {
        fObject = std::make_unique<T>();
        return fObject.get();
    }

    void Recreate() override
    {
        if (fObject == nullptr)
            return;
        Destroy();
        Create();
    }

protected:
    CServiceT() = default;

private:
    std::unique_ptr<T> fObject;
};

} // namespace Kesto
