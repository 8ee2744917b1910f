// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/instance-memory.h"

#include "app/runtime-folder.h"

#include <QCoreApplication>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

struct InstanceMemory::Private
{
    QString path;
    int fd = -1;
    // Every process that has the block mapped holds a shared lock on this one.
    int usersFd = -1;
    void* data = nullptr;
    int size = 0;
    bool locked = false;
    Error error = NoError;
    QString errorString;

    bool fail(Error kind, const QString& what)
    {
        error = kind;
        errorString = what;
        return false;
    }

    bool failWithErrno(const char* call)
    {
        const int code = errno;
        return fail(
            code == EEXIST ? AlreadyExists : OtherError,
            QStringLiteral("%1: %2: %3")
                .arg(QLatin1String(call), path, QString::fromLocal8Bit(std::strerror(code))));
    }

    bool map(int bytes)
    {
        usersFd = ::open(QFile::encodeName(path + QStringLiteral(".users")).constData(),
                         O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600);
        if (usersFd < 0) {
            return failWithErrno("open");
        }
        int locked;
        do {
            locked = ::flock(usersFd, LOCK_SH);
        } while (locked != 0 && errno == EINTR);
        void* mapped =
            ::mmap(nullptr, static_cast<size_t>(bytes), PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
        if (mapped == MAP_FAILED) {
            return failWithErrno("mmap");
        }
        data = mapped;
        size = bytes;
        error = NoError;
        errorString.clear();
        return true;
    }

    void release()
    {
        if (data) {
            ::munmap(data, static_cast<size_t>(size));
            data = nullptr;
        }
        if (fd >= 0) {
            ::close(fd);
            fd = -1;
        }
        if (usersFd >= 0) {
            ::close(usersFd);
            usersFd = -1;
        }
        locked = false;
    }
};

InstanceMemory::InstanceMemory(const QString& folder, const QString& blockName)
    : d(std::make_unique<Private>())
{
    if (!folder.isEmpty()) {
        d->path = folder + QLatin1Char('/') + blockName + QStringLiteral(".block");
    }
}

InstanceMemory::~InstanceMemory()
{
    d->release();
}

bool InstanceMemory::create(int size)
{
    if (d->path.isEmpty()) {
        return d->fail(OtherError, QStringLiteral("no private folder for the block"));
    }
    d->release();
    // The block is filled in under another name and linked into place, so nobody
    // ever maps a block shorter than its size.
    const QByteArray target = QFile::encodeName(d->path);
    const QByteArray draft =
        target + ".new-" + QByteArray::number(QCoreApplication::applicationPid());
    ::unlink(draft.constData());
    d->fd = ::open(draft.constData(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (d->fd < 0) {
        return d->failWithErrno("open");
    }
    const bool sized = ::ftruncate(d->fd, size) == 0;
    const bool linked = sized && ::link(draft.constData(), target.constData()) == 0;
    const int code = errno;
    ::unlink(draft.constData());
    if (!linked) {
        d->release();
        errno = code;
        return d->failWithErrno(sized ? "link" : "ftruncate");
    }
    return d->map(size);
}

bool InstanceMemory::attach(int size)
{
    if (d->path.isEmpty()) {
        return d->fail(OtherError, QStringLiteral("no private folder for the block"));
    }
    d->release();
    d->fd = ::open(QFile::encodeName(d->path).constData(), O_RDWR | O_NOFOLLOW | O_CLOEXEC);
    if (d->fd < 0) {
        return d->failWithErrno("open");
    }
    struct stat info
    {
    };
    if (::fstat(d->fd, &info) != 0) {
        d->release();
        return d->failWithErrno("fstat");
    }
    PathStatus status;
    status.exists = S_ISREG(info.st_mode);
    status.owner = info.st_uid;
    status.mode = info.st_mode & 07777;
    if (!isPrivateEntry(status, ::geteuid()) || info.st_size < size) {
        d->release();
        return d->fail(NotPrivate, QStringLiteral("%1 is not this user's own block").arg(d->path));
    }
    return d->map(size);
}

bool InstanceMemory::lock()
{
    if (d->fd < 0) {
        return d->fail(OtherError, QStringLiteral("lock: no block"));
    }
    if (d->locked) {
        return true;
    }
    int result;
    do {
        result = ::flock(d->fd, LOCK_EX);
    } while (result != 0 && errno == EINTR);
    if (result != 0) {
        return d->failWithErrno("flock");
    }
    d->locked = true;
    return true;
}

bool InstanceMemory::unlock()
{
    if (!d->locked) {
        return d->fail(OtherError, QStringLiteral("unlock: not locked"));
    }
    if (::flock(d->fd, LOCK_UN) != 0) {
        return d->failWithErrno("flock");
    }
    d->locked = false;
    return true;
}

void* InstanceMemory::data() const
{
    return d->data;
}

bool InstanceMemory::isLastUser()
{
    // Taking the lock for oneself succeeds only when nobody else holds it; the
    // shared lock is given up either way, as the block is about to be left.
    return d->usersFd >= 0 && ::flock(d->usersFd, LOCK_EX | LOCK_NB) == 0;
}

InstanceMemory::Error InstanceMemory::error() const
{
    return d->error;
}

QString InstanceMemory::errorString() const
{
    return d->errorString;
}
