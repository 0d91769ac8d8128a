#pragma once

#include <string>
#include <string_view>

namespace quillon {

// Paths of the lab and paths of a POSIX system. In the lab folders end in a
// backslash; a native path that a user has given may stand in front or alone
// ("/home/a/.config\Quillon"), so both signs part folders. Names are bytes and
// stay what they are; a name that itself holds a backslash cannot be reached.

/// A lab path as the system takes it: "\home\a\x.bmp" is "/home/a/x.bmp". Throws
/// RunTimeError FileNotFound for a path with a zero byte, which no file can have.
std::string nativePath(std::string path);

/// A native path as the lab writes it: "/home/a/x.bmp" is "\home\a\x.bmp".
std::string labPath(std::string path);

/// A lab path as it is shown to the user: as this desktop writes paths,
/// "/home/a/Quillon/" for "\home\a\Quillon\". Every message, status text and
/// title that shows a path goes through here. Nothing is looked up, so that a
/// file that does not exist is shown too; scripts keep the lab's form.
std::string shownPath(std::string path);

/// The native path under which a lab path is found: as nativePath where that
/// exists, else component by component with names that differ in the case of
/// ASCII letters alone, the first of several in byte order. What is not found in
/// any case stays as written. Throws as nativePath does.
std::string foundPath(const std::string& path);

/// foundPath for the folder, with the name in it as written.
std::string pathInFoundFolder(const std::string& path);

/// The folder of a native path: "/a" for "/a/b", "/" for "/b", "." for "b".
std::string nativeFolder(const std::string& native);

/// ASCII letters in lower case, all other bytes as they are.
std::string withoutCase(std::string_view name);

}  // namespace quillon
