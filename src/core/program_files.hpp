#pragma once

#include "platform/platform.hpp"

#include <string>
#include <string_view>
#include <vector>

/// The files and folders that lie beside the program. All are reached by joining the program's folder and the literal.
namespace varnholt::core::program_file {

inline constexpr std::string_view DirHis = "\\DirHis.Dat", FileHis = "\\FileHis.Dat";
inline constexpr std::string_view CompHis_L = "\\CompHis_L.Dat", CompHis_R = "\\CompHis_R.Dat";
inline constexpr std::string_view OpenHis = "\\OpenHis.Dat", MostUsed = "\\MostUsed.Dat";
inline constexpr std::string_view FolderSearchHis = "\\FolderSearchHis.Dat";
inline constexpr std::string_view GetQF = "\\GetQF.Dat", GetFolders = "\\GetFolders.Dat";
inline constexpr std::string_view TempUrl = "\\Temp.Url", PresetIni = "\\Preset.Ini", Log = "\\Varnholt.log",
                                  Crash = "\\Crash.log", LeftOut = "\\LeftOut.txt", Readme = "\\Readme.txt",
                                  HomePage = "\\HomePage.htm";
inline constexpr std::string_view VDT_Projects = "\\VDT_Projects", Favorites = "\\Favorites";
inline constexpr std::string_view Bookmarks = "\\Bookmarks", Collections = "\\Collections", Notes = "\\Notes";
inline constexpr std::string_view Skins = "\\Skins", Tmp = "\\Tmp", SwapTmp = "\\SwapTmp";
inline constexpr std::string_view Line34 = "\\line34.jpg", Line34db = "\\line34db.jpg", Line34dg = "\\line34dg.jpg";
inline constexpr std::string_view ToolPicture = "\\Tool.gif", ProgramIcon = "\\vn.ico";

/// Full path of one of the above.
std::string path(const platform::Platform& platform, std::string_view literal);

/// The mark in each folder of the layout that the program has made itself.
inline constexpr std::string_view OwnMark = "\\.varnholt";

/// Makes the folders of the layout that are missing, and marks those as its own.
void makeFolders(const platform::Platform& platform);

/// Deletes a work folder of the layout, unless something lies in it.
void removeWorkFolder(const platform::Platform& platform, std::string_view literal);

/// Deletes what the program has written: data files of the forms that it writes, in folders that are its own. Pictures,
/// library and documents stay. Gives the full paths of what stays although it lies where the program keeps its data:
/// files of other forms, what a move or swap left in the work folders, and folders that somebody else has made.
std::vector<std::string> deleteUserData(const platform::Platform& platform);

}  // namespace varnholt::core::program_file
