// The five failure classes. Each travels by value from where a failure is
// found to the entry, which prints it and turns it into the exit status. They
// share no base on purpose: the entry catches each by its exact type.
#pragma once

#include <windows.h>

#include <memory>

class UsageException {};

class CommandUsageException {
public:
    explicit CommandUsageException(unsigned commandId) : m_commandId(commandId) {}
    unsigned CommandId() const { return m_commandId; }

private:
    unsigned m_commandId;
};

class OperationUsageException {
public:
    // operationId 0 shows no usage; messageId 0 shows no message.
    OperationUsageException(unsigned commandId, unsigned operationId, unsigned messageId)
        : m_commandId(commandId), m_operationId(operationId), m_messageId(messageId) {}
    unsigned CommandId() const { return m_commandId; }
    unsigned OperationId() const { return m_operationId; }
    unsigned MessageId() const { return m_messageId; }

private:
    unsigned m_commandId;
    unsigned m_operationId;
    unsigned m_messageId;
};

// A failed service or system call. The text is composed at construction, while
// the thread's COM error object is still the one the failed call left behind.
class AlertUserException {
public:
    static constexpr size_t kTextChars = 2048;

    AlertUserException(unsigned messageId, HRESULT hr);
    unsigned MessageId() const { return m_messageId; }
    HRESULT Hresult() const { return m_hr; }
    // The thread's last system error where the failure was found, before
    // composing the text (or anything after) could change it.
    DWORD SystemError() const { return m_systemError; }
    // CoTaskMem buffer of kTextChars characters; may be null if allocation failed.
    const wchar_t *Text() const { return m_text.get(); }

private:
    DWORD m_systemError;
    unsigned m_messageId;
    HRESULT m_hr;
    // Shared by the copies that travel with the exception; the last one gives
    // it back, also when a handler catches the failure and goes on.
    std::shared_ptr<wchar_t> m_text;
};

class LocalErrorException {
public:
    explicit LocalErrorException(unsigned messageId) : m_messageId(messageId), m_systemError(GetLastError()) {}
    // A refusal that stands for an earlier failure keeps that failure's system error.
    LocalErrorException(unsigned messageId, DWORD systemError) : m_messageId(messageId), m_systemError(systemError) {}
    unsigned MessageId() const { return m_messageId; }
    // The thread's last system error where the refusal was raised.
    DWORD SystemError() const { return m_systemError; }

private:
    unsigned m_messageId;
    DWORD m_systemError;
};
