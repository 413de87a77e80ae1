// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

/// Owns a file descriptor and closes it; -1 stands for none.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) : m_number(number) {}
    ~FileDescriptor() { reset(); }
    FileDescriptor(const FileDescriptor &) = delete;
    FileDescriptor &operator=(const FileDescriptor &) = delete;

    /// Closes what is held and takes `number` over.
    void reset(int number = -1);

    int get() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }

private:
    int m_number = -1;
};

} // namespace zeph
