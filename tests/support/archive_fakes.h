#pragma once
// Archives in memory: a small file system that fails when told to, and the parts of an archive's bytes.

#include "files/archive.h"
#include "support/byte_samples.h"

#include <cwctype>
#include <map>
#include <string>

// Files by path, without regard to case. What a test has not asked to fail works.
class FakeFiles final : public ArchiveFiles
{
public:
    std::map<std::wstring, ByteList> Files;
    uint32_t Time = 1000000000;
    size_t Room = SIZE_MAX; // bytes that can still be written, in all
    bool CloseFails = false;
    bool ReplaceFails = false;
    std::wstring Unreadable, Unwritable; // one path each
    std::wstring LastTarget;

    ByteList& operator[](const std::wstring& path) { return Files[Key(path)]; }
    bool Has(const std::wstring& path) const { return Files.count(Key(path)) != 0; }

    std::unique_ptr<ArchiveSourceFile> OpenArchive(const wchar_t* path, bool& missing) noexcept override
    {
        missing = !Has(path);
        return OpenSource(path);
    }
    std::unique_ptr<ArchiveSourceFile> OpenSource(const wchar_t* path) noexcept override
    {
        if (!Has(path) || Key(path) == Key(Unreadable))
            return nullptr;
        return std::make_unique<Source>((*this)[path], Time);
    }
    std::unique_ptr<ArchiveTargetFile> OpenTarget(const wchar_t* path) noexcept override
    {
        if (Key(path) == Key(Unwritable))
            return nullptr;
        LastTarget = path;
        (*this)[path].clear();
        return std::make_unique<Target>(*this, path);
    }
    void Remove(const wchar_t* path) noexcept override { Files.erase(Key(path)); }
    bool Replace(const wchar_t* path, const wchar_t* replacement) noexcept override
    {
        if (ReplaceFails)
            return false;
        (*this)[path] = (*this)[replacement];
        Remove(replacement);
        return true;
    }

private:
    static std::wstring Key(std::wstring path)
    {
        for (wchar_t& c : path)
            c = static_cast<wchar_t>(std::towlower(c));
        return path;
    }

    class Source final : public ArchiveSourceFile
    {
    public:
        Source(const ByteList& bytes, uint32_t time)
            : bytes_(bytes), reader_(bytes_.data(), bytes_.size()), time_(time)
        {
        }
        size_t Read(void* buffer, size_t size) noexcept override { return reader_.Read(buffer, size); }
        bool Seek(uint64_t position) noexcept override { return reader_.Seek(position); }
        uint64_t Position() const noexcept override { return reader_.Position(); }
        uint64_t Size() const noexcept override { return reader_.Size(); }
        uint32_t ModificationTime() const noexcept override { return time_; }

    private:
        ByteList bytes_;
        MemoryReader reader_;
        uint32_t time_;
    };

    class Target final : public ArchiveTargetFile
    {
    public:
        Target(FakeFiles& files, std::wstring path) : files_(files), path_(std::move(path)) {}
        bool Write(const void* data, size_t size) noexcept override
        {
            if (size > files_.Room)
                return false;
            files_.Room -= size;
            ByteList& bytes = files_[path_];
            if (bytes.size() < position_ + size)
                bytes.resize(position_ + size);
            if (size)
                std::memcpy(bytes.data() + position_, data, size);
            position_ += size;
            return true;
        }
        uint64_t Position() const noexcept override { return position_; }
        bool Seek(uint64_t position) noexcept override
        {
            position_ = static_cast<size_t>(position);
            return true;
        }
        bool Close() noexcept override { return !files_.CloseFails; }

    private:
        FakeFiles& files_;
        std::wstring path_;
        size_t position_ = 0;
    };
};

// The bytes of an entry as other archivers could write it.
struct EntryBytes {
    std::string Name;
    ByteList Data;
    std::string Method = "-lh0-";
    uint32_t OriginalSize = 0;
    uint16_t Crc = 0;
    std::vector<ByteList> Extended = {}; // without the sizes that they end in

    ByteList Make() const
    {
        ByteList extended;
        for (size_t i = 0; i < Extended.size(); ++i) {
            extended.insert(extended.end(), Extended[i].begin(), Extended[i].end());
            PutWord(extended, i + 1 < Extended.size() ? Extended[i + 1].size() + 2 : 0);
        }
        ByteList header = {static_cast<uint8_t>(Name.size() + 25), 0};
        header.insert(header.end(), Method.begin(), Method.end());
        PutLong(header, Data.size() + extended.size());
        PutLong(header, OriginalSize);
        PutLong(header, 0x12345678);
        PutWord(header, 0x0120);
        header.push_back(static_cast<uint8_t>(Name.size()));
        header.insert(header.end(), Name.begin(), Name.end());
        PutWord(header, Crc);
        header.push_back('M');
        PutWord(header, Extended.empty() ? 0 : Extended[0].size() + 2);
        Seal(header);
        header.insert(header.end(), extended.begin(), extended.end());
        header.insert(header.end(), Data.begin(), Data.end());
        return header;
    }

    // Puts the sum that the header at the front of `bytes` should have.
    static void Seal(ByteList& bytes)
    {
        uint8_t sum = 0;
        for (size_t i = 2; i < bytes[0] + 2u && i < bytes.size(); ++i)
            sum = static_cast<uint8_t>(sum + bytes[i]);
        bytes[1] = sum;
    }

private:
    static void PutWord(ByteList& bytes, size_t value)
    {
        bytes.push_back(static_cast<uint8_t>(value));
        bytes.push_back(static_cast<uint8_t>(value >> 8));
    }
    static void PutLong(ByteList& bytes, size_t value)
    {
        PutWord(bytes, value & 0xFFFF);
        PutWord(bytes, value >> 16 & 0xFFFF);
    }
};

// Entries and the closing byte.
inline ByteList ArchiveOf(const std::vector<ByteList>& entries)
{
    ByteList bytes;
    for (const ByteList& entry : entries)
        bytes.insert(bytes.end(), entry.begin(), entry.end());
    bytes.push_back(0);
    return bytes;
}
