/// Loads an ASE scene, raises every mesh by one unit and saves the scene in the engine text block form.
#include <core/file_parser.h>
#include <core/file_saver.h>
#include <formats/ase/ase.h>

#include <cstdio>
#include <cstring>

//! [log]
/// Hands the saver's lines to a stream: Log writes to standard error, a saver of our own to standard output.
static Result WriteToStream(const char* bytes, std::size_t size, void* stream)
{
    return std::fwrite(bytes, 1, size, static_cast<std::FILE*>(stream)) == size ? 1 : 0;
}

static void ShowWarnings()
{
    Log->OpenSink(WriteToStream, stderr, true);
    Log->SetLowestLevel(2);
}
//! [log]

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::fprintf(stderr, "usage: consumer IN.ase OUT\n");
        return 2;
    }
    ShowWarnings();

    //! [load]
    CFile_Parser parser;
    if (parser.OpenFile(argv[1]) != 1)
    {
        std::fprintf(stderr, "cannot read %s: %s\n", argv[1], std::strerror(parser.GetError()));
        return 1;
    }
    CFileFormat_Ase scene;
    scene.Load(&parser, nullptr);
    //! [load]

    //! [change]
    CFile_Saver report;
    report.OpenSink(WriteToStream, stdout, true);
    for (CFileFormat_Ase::CASEGeomObject& object : scene.GeomObjects)
    {
        for (CMath_Vector3& vertex : object.mesh.vertices)
            vertex.z += 1;
        report.Write(0, L"%s: %u vertices, %u faces", object.name.Get(), object.mesh.vertices.NumItems,
                     object.mesh.faces.NumItems);
    }
    //! [change]

    //! [save]
    CFile_Saver saver;
    saver.OpenFile(argv[2]);
    scene.Save(&saver);
    if (saver.Close() != 1)
    {
        std::fprintf(stderr, "cannot write %s: %s\n", argv[2], std::strerror(saver.GetError()));
        return 1;
    }
    //! [save]
    std::printf("written to %s\n", argv[2]);
    return 0;
}
