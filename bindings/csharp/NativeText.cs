using System;
using System.Runtime.InteropServices;
using System.Text;

namespace Velmar
{
    /// <summary>Texts as the native library takes them: bytes with a NUL behind.</summary>
    public static class NativeText
    {
        /// <summary>Encodes a path in the code page of the file system: UTF-8 on Linux, the ANSI code page on
        /// Windows.</summary>
        /// <exception cref="ArgumentException">the path holds a NUL, or a character that the code page
        /// lacks</exception>
        public static byte[] Path(string path)
        {
            if (path == null) throw new ArgumentNullException("path");
            IntPtr text = Marshal.StringToHGlobalAnsi(path);
            try
            {
                // A code page replaces what it lacks, and a NUL ends the text: both would silently name another file.
                if (Marshal.PtrToStringAnsi(text) != path)
                    throw new ArgumentException("not expressible in the code page of the file system", "path");
                return Terminated(Bytes(text));
            }
            finally
            {
                Marshal.FreeHGlobal(text);
            }
        }

        /// <summary>Encodes a name.</summary>
        public static byte[] Name(string name, Encoding encoding)
        {
            return Terminated(encoding.GetBytes(name));
        }

        /// <summary>The bytes of a NUL-terminated text, without the NUL.</summary>
        public static byte[] Bytes(IntPtr text)
        {
            int length = 0;
            while (Marshal.ReadByte(text, length) != 0) ++length;
            var bytes = new byte[length];
            Marshal.Copy(text, bytes, 0, length);
            return bytes;
        }

        private static byte[] Terminated(byte[] bytes)
        {
            Array.Resize(ref bytes, bytes.Length + 1);
            return bytes;
        }
    }
}
