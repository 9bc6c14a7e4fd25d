# The mail server of the mail tests: aiosmtpd listening on HOST:PORT and storing every message
# in the maildir MAILDIR. With CERT KEY USER PASSWORD it offers STARTTLS with that certificate
# and accepts mail only after a login as USER with PASSWORD over the encrypted connection.
# Prints "ready" once it accepts connections; stops when its standard input closes.
import ssl
import sys

from aiosmtpd.controller import Controller
from aiosmtpd.handlers import Mailbox
from aiosmtpd.smtp import AuthResult, LoginPassword

host, port, maildir = sys.argv[1], int(sys.argv[2]), sys.argv[3]
options = {}
if len(sys.argv) > 4:
    cert, key, user, password = sys.argv[4:8]
    context = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
    context.load_cert_chain(cert, key)

    def authenticator(server, session, envelope, mechanism, auth_data):
        accepted = (isinstance(auth_data, LoginPassword)
                    and auth_data.login == user.encode()
                    and auth_data.password == password.encode())
        return AuthResult(success=accepted, handled=False)

    options = dict(tls_context=context, require_starttls=True, auth_required=True,
                   auth_require_tls=True, authenticator=authenticator)

controller = Controller(Mailbox(maildir), hostname=host, port=port, **options)
controller.start()
print("ready", flush=True)
sys.stdin.read()
controller.stop()
