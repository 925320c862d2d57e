#include "kystring_build.h"

#include <algorithm>

#include "kystring.h"

namespace {

/// The byte-order flag of a source: persistent forms carry further bits, 255 is machine order.
unsigned char SourceOrder(unsigned char flag) { return flag == 255 ? 1 : flag & 15; }

}  // namespace

namespace ky {

void BlockWriter::PutPart(const char* src, std::size_t present, std::size_t bytes, unsigned char flag) {
    bytes = std::min(bytes, static_cast<std::size_t>(limit - at));
    present = std::min(present, bytes);
    if (flag == 2) {
        if (present != 0) KyMemCpy(at, src, 2, flag, static_cast<unsigned>(present));
    } else {
        CopyText(at, src, present);
    }
    if (present != bytes) std::memset(at + present, 0, bytes - present);
    at += bytes;
}

void BlockWriter::Put(const char* src, std::size_t present, std::size_t bytes, std::size_t repeat, unsigned char flag) {
    if (repeat == 0 || bytes == 0) return;
    char* first = at;
    Put(src, present, bytes, flag);
    std::size_t left = std::min((repeat - 1) * bytes, static_cast<std::size_t>(limit - at));
    while (left != 0) {
        const std::size_t n = std::min(left, static_cast<std::size_t>(at - first));
        std::memcpy(at, first, n);
        at += n;
        left -= n;
    }
}

void WorkArea::Grow(std::size_t wanted, std::size_t used) {
    std::unique_ptr<char[]> larger(new char[wanted]);
    CopyText(larger.get(), data, used);
    heap = std::move(larger);
    data = heap.get();
    capacity = wanted;
}

void MappedSource::Map(const char* src, unsigned char from, unsigned char to, std::size_t start, std::size_t count) {
    const unsigned width = CharWidth(from);
    if (start != 0 && TextLength(src, width, start) < start) return;
    src += start * width;

    std::unique_ptr<char[]> native;
    if (flag == 2) {
        count = TextLength(src, width, count);
        native.reset(new char[(count + 1) * width]());
        KyMemCpy(native.get(), src, 2, flag, static_cast<unsigned>(count * width));
        src = native.get();
        flag = 1;
    }

    const auto n = static_cast<unsigned short>(std::min<std::size_t>(count, 65535));
    const std::size_t needed = (n + std::size_t{1}) * CharWidth(to);
    char* buffer = needed <= sizeof scratch ? scratch : nullptr;
    auto bufferSize = static_cast<unsigned short>(buffer != nullptr ? needed : 0);
    bytes = AllocMappedN(from, to, src, n, buffer, bufferSize) * std::size_t{CharWidth(to)};
    if (buffer != scratch) mapped.reset(buffer);
    data = buffer;
}

}  // namespace ky

void KyString::MakeString(const char* src, unsigned char srcCodeSet, short n, unsigned char flag) {
    auto count = static_cast<unsigned short>(n);
    if (count == 0 || src == nullptr) {
        buffer = nullptr;
        bufferSize = 0;
        return;
    }
    if (count == NotFound) {
        const std::size_t length = ky::TextLength(src, ky::CharWidth(srcCodeSet));
        count = static_cast<unsigned short>(std::min<std::size_t>(length, 65535));
    }
    if (SourceOrder(flag) != 2 && !ky::MappedSource::HasToMap(srcCodeSet, codeSet)) {
        SetTail(0, src, srcCodeSet, count);
        return;
    }
    BuildString(src, srcCodeSet, 0, 0, count, 1, ky::kAppend, flag);
}

void KyString::BuildString(const char* src, unsigned char srcCodeSet, unsigned short pos, unsigned short srcStart,
                           unsigned short srcCount, unsigned short repeat, unsigned short mode, unsigned char flag) {
    const bool needsSource = mode == ky::kOverwrite || mode == ky::kInsert;
    if (needsSource && (src == nullptr || ky::AtEnd(src, ky::CharWidth(srcCodeSet)))) return;

    const unsigned width = ky::CharWidth(codeSet);
    const std::int64_t head = std::int64_t{pos} * width;
    const std::int64_t once = std::int64_t{srcCount} * width;
    const std::int64_t added = once * repeat;
    const std::int64_t old = bufferSize > width ? (bufferSize - width) / width * width : 0;
    const std::int64_t readable =
        src == buffer ? std::max<std::int64_t>(old - std::int64_t{srcStart} * width, 0) : once;
    const ky::MappedSource source(src, srcCodeSet, codeSet, srcStart, readable != 0 ? srcCount : 0, SourceOrder(flag));

    std::int64_t size = 0;
    std::int64_t tailStart = old;
    switch (mode) {
        case ky::kOverwrite:
            size = bufferSize + added - once;
            tailStart = head + once;
            break;
        case ky::kInsert:
            size = std::max<std::int64_t>(bufferSize, width) + added;
            tailStart = head;
            break;
        case ky::kAppend:
            size = head + added + width;
            break;
        default:
            break;
    }

    ky::BlockWriter block(static_cast<std::uint64_t>(std::max<std::int64_t>(size, 0)), width);
    if (block.Size() != 0) {
        const auto bytes = [](std::int64_t n) { return static_cast<std::size_t>(std::max<std::int64_t>(n, 0)); };
        block.Put(buffer, bytes(old), bytes(head));
        block.Put(source.Data(), std::min(source.Bytes(), bytes(readable)), bytes(once), repeat, source.Flag());
        if (tailStart < old) block.Put(buffer + tailStart, bytes(old - tailStart), bytes(old - tailStart));
    }
    TakeOver(block);
}

void* KyString::Alloc(short size) {
    const auto bytes = static_cast<unsigned short>(size);
    char* block = new char[bytes]();
    bufferSize = bytes;
    return block;
}

void KyString::TakeOver(ky::BlockWriter& block) {
    char* old = buffer;
    bufferSize = static_cast<unsigned short>(block.Size());
    buffer = block.Release();
    delete[] old;
}
