#ifndef ZEMSUB_TESTS_TESTFILES_H
#define ZEMSUB_TESTS_TESTFILES_H

#include <random>
#include <string>

// A fresh temporary directory, removed with everything in it when the object goes.
class TempDir
{
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& path() const { return m_path; }
    // Writes bytes (exactly as given, zero bytes included) to name inside the directory.
    std::string write(const std::string& name, const std::string& bytes) const;
    // name inside the directory, not created.
    std::string file(const std::string& name) const;

private:
    std::string m_path;
};

// Makes dir the current directory for the object's lifetime.
class InDirectory
{
public:
    explicit InDirectory(const std::string& dir);
    ~InDirectory();
    InDirectory(const InDirectory&) = delete;
    InDirectory& operator=(const InDirectory&) = delete;

private:
    std::string m_previous;
};

// UTF-16LE bytes of an ASCII/Latin-1 text, preceded by FF FE when withMark is set.
std::string utf16le(const std::string& latin1, bool withMark = true);
// The bytes FF FE followed by text in the 8-bit form (what a wide parser decodes
// under the "C.UTF-8" locale when the text is UTF-8).
std::string withMark(const std::string& bytes);

// bytes with about one in oneIn of its characters other than line feeds
// replaced by a UTF-8 character of two to four bytes; well-formed UTF-8 when
// bytes were below 0x80.
std::string withUtf8Characters(const std::string& bytes, std::mt19937& random, unsigned oneIn);

// An SSA script as SubStation Alpha wrote it (ScriptType v4.00, Marked fields, a
// Sound line among the Dialogue lines), its four Dialogue lines One (1-2 s), Two
// (3-4 s), Three (5-6 s) and Four (7-8 s); ending follows the last one.
std::string substationScript(const std::string& ending);

// Number of file descriptors the process holds open.
int openDescriptorCount();

#endif
