"""Tests the list of sources of the macOS build: a missing one is never compiled for a Mac here."""
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import macos_sources


class SourcesForAMac(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.root = pathlib.Path(scratch.name)

    def write(self, path, text=""):
        (self.root / path).parent.mkdir(parents=True, exist_ok=True)
        (self.root / path).write_text(text)

    def named(self):
        return sorted(str(path) for path in macos_sources.sources_of(self.root))

    def test_are_those_of_a_macs_branch(self):
        self.write("CMakeLists.txt", """
            if(APPLE)
              add_library(a mac.mm)
            else()
              add_library(a linux.cpp)
            endif()
            if(NOT APPLE)
              target_sources(a PRIVATE other.cpp)
            elseif(SOMETHING)
              target_sources(a PRIVATE chosen.cpp)
            else()
              target_sources(a PRIVATE last.cpp)
            endif()""")
        self.assertEqual(self.named(), ["chosen.cpp", "last.cpp", "mac.mm"])

    def test_are_those_of_both_branches_where_it_depends(self):
        self.write("CMakeLists.txt", """
            if(APPLE)
              find_library(FRAMEWORK Framework)
              if(FRAMEWORK)
                list(APPEND sources with.mm)
              else()
                list(APPEND sources without.cpp)
              endif()
            endif()""")
        self.assertEqual(self.named(), ["with.mm", "without.cpp"])

    def test_are_found_in_the_folders_added_and_by_pattern(self):
        self.write("CMakeLists.txt", "add_subdirectory(src/mac) # add_subdirectory(src/other)")
        self.write("src/mac/CMakeLists.txt", "file(GLOB sources CONFIGURE_DEPENDS *.cpp inner/*.mm)")
        self.write("src/other/CMakeLists.txt", "add_library(b b.cpp)")
        for source in ("src/mac/a.cpp", "src/mac/b.h", "src/mac/inner/c.mm", "src/other/b.cpp"):
            self.write(source)
        self.assertEqual(self.named(), ["src/mac/a.cpp", "src/mac/inner/c.mm"])

    def test_are_found_in_the_folder_that_a_variable_names(self):
        self.write("CMakeLists.txt", """
            if(APPLE)
              set(system macos)
            else()
              set(system linux)
            endif()
            set(sources main.cpp ${system}/start.cpp ${unknown}/other.cpp)
            add_executable(a ${sources})""")
        self.assertEqual(self.named(), ["macos/start.cpp", "main.cpp"])

    def test_end_where_the_file_returns_on_a_mac(self):
        self.write("CMakeLists.txt", """
            add_library(a first.cpp)
            if(APPLE)
              return()
            endif()
            target_sources(a PRIVATE second.cpp)""")
        self.assertEqual(self.named(), ["first.cpp"])

    def test_go_on_where_it_may_return(self):
        self.write("CMakeLists.txt", """
            if(NOT TARGET b)
              return()
            endif()
            add_library(a first.cpp)""")
        self.assertEqual(self.named(), ["first.cpp"])

    def test_that_no_file_names_are_told(self):
        self.write("CMakeLists.txt", "add_library(a src/a.cpp)\nset_source_files_properties(src/b.mm PROPERTIES X y)")
        for source in ("src/a.cpp", "src/b.mm", "src/linux/c.cpp", "src/d.h"):
            self.write(source)
        missing = macos_sources.missing_from(macos_sources.sources_of(self.root), self.root)
        self.assertEqual([str(path) for path in missing], ["src/b.mm"])


if __name__ == "__main__":
    unittest.main()
