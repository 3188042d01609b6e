// A file that someone planted: a library with the name of another one, and next to nothing in it.
extern "C" __declspec(dllexport) int planted();

int planted()
{
    return 1;
}
