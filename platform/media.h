#pragma once

#include "platform/types.h"

#include <cstdint>
#include <string>

namespace platform {

/// The sound device takes text commands and is closed, or open on one file. Its verbs:
///
///     open FILE type MpegVideo Alias mpeg [parent N] [Style N]
///                                opens the file of that short name, standing at 0
///     set mpeg time format frames
///                                changes nothing: thousandths of a second are all it speaks
///     status mpeg length         the track's length; never changes while the file is open
///     status mpeg position       what has been heard: from 0, to exactly the length at the end
///     play mpeg [from A] [to B]  sounds that span; without `from` from where it stands, without
///                                `to` to the end. Where it plays or is paused in just that span:
///                                goes on
///     pause mpeg, resume mpeg    stands still, goes on; nothing where there is nothing to do so
///     stop mpeg                  falls silent and stays where it is
///     seek mpeg to N             falls silent and stands at N
///     close mpeg                 gives the file up
///
/// No command waits for the sound to be heard. `open` waits for the disk to give up as much of the
/// file as tells its length; the first command that needs the sound server waits for that to
/// start. Neither holds the caller for long: the command fails instead. A file that took too long
/// is waited for once more when it is asked for again. If the server goes away in play, the
/// position stands still, and the sound goes on from there when a later question for the position
/// finds the server back.
///
/// Errors leave the device as it was:
///
///     259  a word that has no place in the command       275  the file is not there
///     261  no such command                               277  it holds no sound
///     263  no file is open                               278  it can't be read
///     265  the command lacks a word                      279  the sound server doesn't answer
///     269  not a whole number                            280  out of memory
///     270  the command is longer than 255 characters     282  a position outside 0 to the length
///     289  a file is open already                        290  the file took too long to open

/// Tells by its path which file will be opened next, to be played from 1 on. The device may begin
/// to read it; nothing else comes of it, and nobody waits. Interface thread; may come before
/// `start`.
void expectFile(const std::string& path);

/// Sends one command. Interface thread only.
/// `command` ends in a nul; words in any case, blanks folded, trailing blanks ignored.
/// The reply, cut to `replySize` - 1 characters and ended by a nul, goes to `reply` (may be null
/// with size 0). Returns 0, or the number of the error. Lengths and positions are thousandths of a
/// second.
std::uint32_t mciSendStringA(const char* command, char* reply, std::uint32_t replySize,
                             WindowHandle callback);

/// Writes the text of an error number, cut to `size` - 1 characters and ended by a nul.
/// False for a number that no command gives.
bool mciGetErrorStringA(std::uint32_t error, char* text, std::uint32_t size);

/// Number of wave output devices; 0 without a sound server.
std::uint32_t waveOutGetNumDevs();

/// Reads a device's volume: low word left, high word right, each 0 to 65535. 0 on success.
std::uint32_t waveOutGetVolume(std::uint32_t device, std::uint32_t* volume);

/// Sets a device's volume, as above. 0 on success.
std::uint32_t waveOutSetVolume(std::uint32_t device, std::uint32_t volume);

} // namespace platform
