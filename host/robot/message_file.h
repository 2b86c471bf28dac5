// A file of the messages that climb to windows: one JSON object a line, each written at once.
#pragma once

#include "lumograph/window_requests.h"

#include <fstream>
#include <string>

namespace Host {

class MessageFile {
public:
    // The path is in UTF-8. Throws std::runtime_error if the file can't be written.
    explicit MessageFile(const std::string& path);
    MessageFile(const MessageFile&) = delete;
    MessageFile& operator=(const MessageFile&) = delete;

    // For kHostRequestMessages; it is this object's.
    const HostMessageLog& Log() const { return fLog; }

private:
    static void Add(void* context, const HostMessage* message);

    std::ofstream fFile;
    HostMessageLog fLog{this, Add};
};

} // namespace Host
