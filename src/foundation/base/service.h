// Process-wide singletons that are made on first use and destroyed, newest first, when the process
// shuts down.
//
// All services that were ever used form one list, newest at its head. One thread, the user
// interface's, uses them.
#pragma once

#include <memory>

namespace Kesto {

class CService {
public:
    CService() = default;
    CService(const CService&) = delete;
    CService& operator=(const CService&) = delete;
    virtual ~CService();

    // Deletes the object, if there is one.
    virtual void Destroy() = 0;

    // Destroys the objects of all listed services, newest first, and empties the list. A service
    // that is used later, even by an object that is going, is made and listed anew.
    static void ShutdownAll();

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
    // The one holder, made at its first use.
    static CServiceT& Holder()
    {
        static CServiceT holder;
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

    // Deletes the object, if there is one, and makes a new one in its place.
    virtual void Recreate()
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
