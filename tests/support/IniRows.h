// How INI files are read and written, row by row: what cIni keeps to everywhere, and what is held against the
// platform's own functions where there are such.
#pragma once

#include <string>
#include <vector>

#include "support/IniText.h"

namespace tovarek::test {

// The numbers and texts that stand for a missing key.
inline constexpr int kMissingNumber = 99;
inline constexpr const char* kMissingText = "DEF";

struct IniRow {
    std::string file;
    std::string text;  // of [s] k
    int number;        // the same
};

inline std::vector<IniRow> IniValues() {
    const std::string letters(1200, 'x');
    return {
        // Which line counts.
        {"[s]\nx=1\n", kMissingText, kMissingNumber},
        {"[t]\nk=1\n", kMissingText, kMissingNumber},
        {"k=1\n[s]\n", kMissingText, kMissingNumber},
        {"[s]\nk\n", kMissingText, kMissingNumber},
        {"[s]\nk=1\nk=2\n", "1", 1},
        {"[s]\nx=1\n[s]\nk=2\n", kMissingText, kMissingNumber},
        {"[S]\nK=1\n", "1", 1},
        {"  [  s  ] text\r\nk=5", "5", 5},
        {"[s\nk=1\n", kMissingText, kMissingNumber},
        {"[[s]\nk=1\n", kMissingText, kMissingNumber},
        {"[s]]\nk=1\n[s]\nk=2", "2", 2},
        {"[s]\n;k=1\n", kMissingText, kMissingNumber},
        {"[s]\n#k=1\n//k=2\n", kMissingText, kMissingNumber},
        {"[s]\rk=7\r", "7", 7},
        {"[s]\r\r\nk=7\r\n\r\n", "7", 7},
        {"[s]\na=1\r\n\n\rb=2\rk=7", "7", 7},
        {"[s]\nk=1\n\x1A", "1", 1},
        // What belongs to the value.
        {"[s]\nk=\n", "", 0},
        {"[s]\nk=   \n", "", 0},
        {"[s]\nk=\"\"\n", "", 0},
        {"[s]\n  k  =  1 2  \n", "1 2", 1},
        {"[s]\nk='q'\n", "q", 0},
        {"[s]\nk=\"  q  \"\n", "q", 0},
        {"[s]\nk=\"12\"\n", "12", 12},
        {"[s]\nk=\"q\n", "\"q", 0},
        {"[s]\nk=x\"y\"\n", "x\"y\"", 0},
        {"[s]\nk=\"a\"b\"\n", "a\"b", 0},
        {"[s]\nk=\"a\";c\n", "\"a\";c", 0},
        {"[s]\nk=2 ; tail\n", "2 ; tail", 2},
        {"[s]\nk=5 # tail\n", "5 # tail", 5},
        {"[s]\nk=a=b=c\n", "a=b=c", 0},
        {"[s]\nk=\ta\t\n", "\ta\t", 0},
        {"[s]\nk=a\tb\x01\n", "a\tb\x01", 0},
        {"[s]\nk=\v\f4\f\v\n", "4", 4},
        {"[s]\nk=4\xA0\n", "4\xC2\xA0", 4},
        {std::string("[s]\nk=4\0005\n", 9), "4", 4},
        {"[s]\nk=" + letters.substr(0, 999), letters.substr(0, 999), 0},
        {"[s]\nk=" + letters.substr(0, 1000), letters.substr(0, 999), 0},
        {"[s]\nk=" + letters, letters.substr(0, 999), 0},
        {"[s]\nk=" + letters.substr(0, 998) + " x", letters.substr(0, 998), 0},
        // Encodings.
        {"[s]\nk=3\xB0\n", "3\xC2\xB0", 3},
        {"\xEF\xBB\xBF[s]\nk=3\xC2\xB0\n", "3\xC2\xB0", 3},
        {"\xEF\xBB\xBF[s]\nk=3 \xCE\xA9\n", "3 \xCE\xA9", 3},
        {EncodeIni("[s]\r\nk=5 \xE2\x82\xAC\r\n", IniEncoding::utf16LittleEndian), "5 \xE2\x82\xAC", 5},
        {EncodeIni("[s]\r\nk=5 \xE2\x82\xAC\r\n", IniEncoding::utf16BigEndian), "5 \xE2\x82\xAC", 5},
        {EncodeIni("[s]\r\nk=5\r\n", IniEncoding::utf16LittleEndian).substr(2), kMissingText, kMissingNumber},
    };
}

inline std::vector<IniRow> IniIntegers() {
    return {
        {"[s]\nk=12abc", "12abc", 12},
        {"[s]\nk=3.9", "3.9", 3},
        {"[s]\nk=1,000", "1,000", 1},
        {"[s]\nk=1e3", "1e3", 1},
        {"[s]\nk=010", "010", 10},
        {"[s]\nk=-5", "-5", -5},
        {"[s]\nk=+5", "+5", 5},
        {"[s]\nk=- 5", "- 5", 0},
        {"[s]\nk=-", "-", 0},
        {"[s]\nk=\t6", "\t6", 6},
        {"[s]\nk=0x10", "0x10", 16},
        {"[s]\nk=0X1f", "0X1f", 0},
        {"[s]\nk=-0x10", "-0x10", -16},
        {"[s]\nk=0x", "0x", 0},
        {"[s]\nk=&H10", "&H10", 0},
        {"[s]\nk=4294967295", "4294967295", -1},
        {"[s]\nk=2147483648", "2147483648", INT32_MIN},
        {"[s]\nk=99999999999", "99999999999", 1215752191},
        {"[s]\nk=-2147483649", "-2147483649", 2147483647},
        {"[s]\nk=true", "true", 0},
    };
}

struct IniWriteRow {
    std::string before;
    std::string key;
    std::string value;
    std::string after;
};

inline std::vector<IniWriteRow> IniWrites() {
    return {
        {"", "k", "1", "[s]\r\nk=1\r\n"},
        {"[s]\n;c\n\nKey=1\nb=2\n", "kEY", "9", "[s]\r\n;c\r\nKey=9\r\nb=2\r\n"},
        {"[s]\nk=1\nk=2\n", "k", "3", "[s]\r\nk=3\r\nk=2\r\n"},
        {"[s]\na=1\n[t]\nk=2\n", "k", " v ", "[s]\r\na=1\r\nk=v \r\n[t]\r\nk=2\r\n"},
        {"[t]\na=1", "k", "2", "[t]\r\na=1\r\n[s]\r\nk=2\r\n"},
        {"[t]\n[s]\n", "k", "2", "[t]\r\n[s]\r\nk=2\r\n"},
        {"[s]\n\nk=1\n", "k", "1", "[s]\n\nk=1\n"},
        {"[s]\n", "k", "\"q\"", "[s]\r\nk=\"q\"\r\n"},
        {"\xEF\xBB\xBF[s]\n", "k", "\xC2\xB0", "\xEF\xBB\xBF[s]\r\nk=\xC2\xB0\r\n"},
        {"[s]\n", "k", "\xC2\xB0", "[s]\r\nk=\xB0\r\n"},
    };
}

}  // namespace tovarek::test
