// A container over an open file.
#pragma once

#include "foundation/streams/container.h"
#include "foundation/streams/file_port.h"

namespace Kesto {

class CFileContainer final : public CContainer {
public:
    // Begins at the start of the file. The port stays the caller's, outlives the container and is
    // not moved meanwhile.
    explicit CFileContainer(CFilePort& port) : CContainer(port.GetLength()), fPort(port)
    {
        fPort.Seek(0);
    }

    void Flush() override { fPort.Flush(); }
    void SetLength(std::uint64_t size) override { fPort.SetLength(size); }
    void SetPosition(std::uint64_t position) override { fPort.Seek(position); }
    void ReadBytes(void* buffer, std::size_t size) override { fPort.Read(buffer, size); }
    void WriteBytes(const void* buffer, std::size_t size) override { fPort.Write(buffer, size); }

private:
    CFilePort& fPort;
};

} // namespace Kesto
