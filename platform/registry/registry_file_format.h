// The text form of a registry store, UTF-8 with one entry a line:
//
//   ; comment
//   [Software\Ostrel Software\Tabra\Export]
//   "FileName"="/home/ann/export.txt"
//   "Type"=dword:00000834
//   @="the key's default value"
//
// A section line names a key by its path; the value lines below it belong to that
// key. Inside quotes \\ \" \n \r \t stand for themselves, \xHH for the other control
// characters and \uHHHH for a surrogate without its partner; everything else is plain
// UTF-8. Blank lines, comment lines (";" or "#") and blanks around a line are ignored.
// Anything else makes the file damaged: the parser answers nothing rather than guess.
#pragma once

#include "platform/registry/registry_document.h"

#include <optional>
#include <string>
#include <string_view>

namespace tabra::platform {

std::optional<RegistryDocument> parseRegistryText(std::string_view utf8);
std::string formatRegistryText(const RegistryDocument &document);

} // namespace tabra::platform
