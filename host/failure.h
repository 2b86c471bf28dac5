// What goes wrong in the host, in words for the person at the keyboard.
#pragma once

#include "lumograph/results.h"

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace Host {

// what() says what failed, on what, with the value found; Advice() what to do about it and may be
// empty; Code() is the result code that led to it, kHostFailed when there is none.
class Failure : public std::runtime_error {
public:
    explicit Failure(const std::string& text, std::string advice = {}, int16_t code = kHostFailed)
        : std::runtime_error(text), fAdvice(std::move(advice)), fCode(code)
    {
    }

    const std::string& Advice() const { return fAdvice; }
    int16_t Code() const { return fCode; }

private:
    std::string fAdvice;
    int16_t fCode;
};

// A failure of a host call or a module on a file: the code's own text and advice.
Failure FailureOf(const std::string& what, int16_t code);

// Throws FailureOf(what, code) unless the code is 0.
void Require(int16_t code, const std::string& what);

// A path as UTF-8, for messages and for interfaces in plain C.
std::string TextOf(const std::filesystem::path& path);

} // namespace Host
